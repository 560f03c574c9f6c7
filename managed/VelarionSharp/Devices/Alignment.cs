using System;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// The rigid relation between a device's own frame and the frame of an
    /// external tracking system (positions in metres): device to tracking is
    /// p_tracking = R · p_device + t, tracking to device its inverse. Each
    /// device has a default one (<see cref="DeviceInfo.GetDefaultAlignment"/>);
    /// alignments round-trip through files. Owned: dispose it when done.
    /// </summary>
    public partial class Alignment
    {
        /// <summary>The device-frame position <paramref name="position"/> in the tracking frame, as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="position"/> is null.</exception>
        public NVector3 FromDevicePositionToTrackingPosition(NVector3 position) =>
            fromDevicePositionToTrackingPosition(position);

        /// <summary>The device-frame direction <paramref name="direction"/> in the tracking frame (turned, not moved), as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="direction"/> is null.</exception>
        public NVector3 FromDeviceDirectionToTrackingDirection(NVector3 direction) =>
            fromDeviceDirectionToTrackingDirection(direction);

        /// <summary>The tracking-frame position <paramref name="position"/> in the device frame, as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="position"/> is null.</exception>
        public NVector3 FromTrackingPositionToDevicePosition(NVector3 position) =>
            fromTrackingPositionToDevicePosition(position);

        /// <summary>The tracking-frame direction <paramref name="direction"/> in the device frame, as a new vector.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="direction"/> is null.</exception>
        public NVector3 FromTrackingDirectionToDeviceDirection(NVector3 direction) =>
            fromTrackingDirectionToDeviceDirection(direction);

        /// <summary>The device-frame position <paramref name="position"/> in the tracking frame; nothing is left to dispose.</summary>
        public Numerics.Vector3 FromDevicePositionToTrackingPosition(Numerics.Vector3 position) =>
            NativeResult.Apply(getCPtr(this), this, position, velarionPINVOKE.AlignmentDevicePositionToTracking);

        /// <summary>The device-frame direction <paramref name="direction"/> in the tracking frame; nothing is left to dispose.</summary>
        public Numerics.Vector3 FromDeviceDirectionToTrackingDirection(Numerics.Vector3 direction) =>
            NativeResult.Apply(getCPtr(this), this, direction, velarionPINVOKE.AlignmentDeviceDirectionToTracking);

        /// <summary>The tracking-frame position <paramref name="position"/> in the device frame; nothing is left to dispose.</summary>
        public Numerics.Vector3 FromTrackingPositionToDevicePosition(Numerics.Vector3 position) =>
            NativeResult.Apply(getCPtr(this), this, position, velarionPINVOKE.AlignmentTrackingPositionToDevice);

        /// <summary>The tracking-frame direction <paramref name="direction"/> in the device frame; nothing is left to dispose.</summary>
        public Numerics.Vector3 FromTrackingDirectionToDeviceDirection(Numerics.Vector3 direction) =>
            NativeResult.Apply(getCPtr(this), this, direction, velarionPINVOKE.AlignmentTrackingDirectionToDevice);

        /// <summary>
        /// Writes the device-to-tracking transform into the first sixteen
        /// elements of <paramref name="matrix"/>, in the device library's order
        /// (row-major, column vectors: the translation is elements 3, 7, 11).
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="matrix"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="matrix"/> holds fewer than sixteen elements.</exception>
        public void FromDeviceToTrackingTransformToArray4x4(float[] matrix) => fromDeviceToTrackingTransformToArray4x4(matrix);

        /// <inheritdoc cref="FromDeviceToTrackingTransformToArray4x4(float[])"/>
        public void FromDeviceToTrackingTransformToArray4x4(double[] matrix) => fromDeviceToTrackingTransformToArray4x4(matrix);

        /// <summary>
        /// Writes the tracking-to-device transform into the first sixteen
        /// elements of <paramref name="matrix"/>, in the device library's order
        /// (row-major, column vectors).
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="matrix"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="matrix"/> holds fewer than sixteen elements.</exception>
        public void FromTrackingToDeviceTransformToArray4x4(float[] matrix) => fromTrackingToDeviceTransformToArray4x4(matrix);

        /// <inheritdoc cref="FromTrackingToDeviceTransformToArray4x4(float[])"/>
        public void FromTrackingToDeviceTransformToArray4x4(double[] matrix) => fromTrackingToDeviceTransformToArray4x4(matrix);

        /// <summary>
        /// The device-to-tracking transform in <see cref="Numerics.Matrix4x4"/>'s
        /// row-vector convention: <c>Numerics.Vector3.Transform(p, m)</c> maps a
        /// device position into the tracking frame.
        /// </summary>
        public Numerics.Matrix4x4 GetDeviceToTrackingTransform()
        {
            var elements = new float[16];
            fromDeviceToTrackingTransformToArray4x4(elements);
            return RowVectorMatrix(elements);
        }

        /// <summary>
        /// The tracking-to-device transform in <see cref="Numerics.Matrix4x4"/>'s
        /// row-vector convention.
        /// </summary>
        public Numerics.Matrix4x4 GetTrackingToDeviceTransform()
        {
            var elements = new float[16];
            fromTrackingToDeviceTransformToArray4x4(elements);
            return RowVectorMatrix(elements);
        }

        /// <summary>
        /// A new alignment whose device-to-tracking transform is the rigid
        /// <paramref name="deviceToTracking"/>, given in
        /// <see cref="Numerics.Matrix4x4"/>'s row-vector convention (as
        /// <see cref="GetDeviceToTrackingTransform"/> returns it); the fourth
        /// column is ignored.
        /// </summary>
        public static Alignment FromNumerics(Numerics.Matrix4x4 deviceToTracking)
        {
            Numerics.Matrix4x4 m = deviceToTracking;
            return new Alignment(m.M11, m.M21, m.M31,
                                 m.M12, m.M22, m.M32,
                                 m.M13, m.M23, m.M33,
                                 m.M41, m.M42, m.M43);
        }

        /// <summary>
        /// Replaces this alignment with the one in the file at
        /// <paramref name="path"/>. False, and this alignment unchanged, when
        /// the file cannot be read or is malformed (the device library logs why).
        /// </summary>
        public bool LoadAlignment(string path) => loadAlignment(path);

        /// <summary>Writes this alignment to the file at <paramref name="path"/>; false when it cannot be written.</summary>
        public bool SaveAlignment(string path) => saveAlignment(path);

        // Row-major with column vectors, transposed into row vectors.
        private static Numerics.Matrix4x4 RowVectorMatrix(float[] e) =>
            new Numerics.Matrix4x4(
                e[0], e[4], e[8], e[12],
                e[1], e[5], e[9], e[13],
                e[2], e[6], e[10], e[14],
                e[3], e[7], e[11], e[15]);
    }
}
