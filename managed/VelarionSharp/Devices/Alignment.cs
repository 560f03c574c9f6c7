using System;
using Velarion.Interop;

namespace Velarion
{
    /// <summary>
    /// Where a device sits in a tracking system's space: a rigid transform from
    /// device space to tracking space, kept by the device library, which also
    /// reads and writes it as a file.
    /// </summary>
    public sealed class Alignment : IDisposable
    {
        private readonly Raw.Alignment native;

        /// <summary>The identity alignment: tracking space is device space.</summary>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public Alignment()
        {
            NativeLibraries.EnsureLoadable();
            native = new Raw.Alignment();
        }

        /// <summary>The alignment whose device-to-tracking transform is <paramref name="deviceToTracking"/>.</summary>
        /// <param name="deviceToTracking">A rigid transform (rotation basis), rounded to float.</param>
        /// <exception cref="DllNotFoundException">The device library cannot be loaded.</exception>
        public Alignment(Transform deviceToTracking)
        {
            NativeLibraries.EnsureLoadable();
            Matrix3x3 r = deviceToTracking.Basis;
            NVector3 t = deviceToTracking.Origin;
            native = new Raw.Alignment((float)r.M00, (float)r.M01, (float)r.M02, (float)r.M10, (float)r.M11, (float)r.M12,
                                       (float)r.M20, (float)r.M21, (float)r.M22, t.X, t.Y, t.Z);
        }

        /// <summary>The transform from device space to tracking space.</summary>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public Transform DeviceToTracking => DeviceToTrackingOf(native);

        /// <summary>Maps a position from device space to tracking space.</summary>
        /// <param name="position">A position in device space, in metres.</param>
        /// <returns>The position in tracking space.</returns>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public unsafe NVector3 FromDevicePositionToTrackingPosition(NVector3 position)
        {
            using var self = new HandleLease(native.swigCPtr);
            return GeometryImports.Take(AlignmentImports.DevicePositionToTracking(self.Pointer, &position));
        }

        /// <summary>Turns a direction from device space to tracking space.</summary>
        /// <param name="direction">A direction in device space.</param>
        /// <returns>The direction in tracking space.</returns>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public unsafe NVector3 FromDeviceDirectionToTrackingDirection(NVector3 direction)
        {
            using var self = new HandleLease(native.swigCPtr);
            return GeometryImports.Take(AlignmentImports.DeviceDirectionToTracking(self.Pointer, &direction));
        }

        /// <summary>Maps a position from tracking space to device space.</summary>
        /// <param name="position">A position in tracking space, in metres.</param>
        /// <returns>The position in device space.</returns>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public unsafe NVector3 FromTrackingPositionToDevicePosition(NVector3 position)
        {
            using var self = new HandleLease(native.swigCPtr);
            return GeometryImports.Take(AlignmentImports.TrackingPositionToDevice(self.Pointer, &position));
        }

        /// <summary>Turns a direction from tracking space to device space.</summary>
        /// <param name="direction">A direction in tracking space.</param>
        /// <returns>The direction in device space.</returns>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public unsafe NVector3 FromTrackingDirectionToDeviceDirection(NVector3 direction)
        {
            using var self = new HandleLease(native.swigCPtr);
            return GeometryImports.Take(AlignmentImports.TrackingDirectionToDevice(self.Pointer, &direction));
        }

        /// <summary>Reads the alignment from a file, replacing this one.</summary>
        /// <param name="path">An alignment file.</param>
        /// <returns>false, and nothing changes, when the file cannot be read or is not an alignment (the log says why).</returns>
        /// <exception cref="ArgumentNullException"><paramref name="path"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="path"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public bool TryLoad(string path) => native.loadAlignment(Arguments.Text(path, nameof(path)));

        /// <summary>Writes the alignment to a file.</summary>
        /// <param name="path">The file to write.</param>
        /// <returns>false when it cannot be written (the log says why).</returns>
        /// <exception cref="ArgumentNullException"><paramref name="path"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="path"/> contains '\0'.</exception>
        /// <exception cref="ObjectDisposedException">The alignment was disposed.</exception>
        public bool TrySave(string path) => native.saveAlignment(Arguments.Text(path, nameof(path)));

        /// <summary>Frees the native alignment. Calling it again does nothing.</summary>
        public void Dispose() => native.Dispose();

        internal static Transform DeviceToTrackingOf(Raw.Alignment alignment)
        {
            var e = new double[16];
            alignment.fromDeviceToTrackingTransformToArray4x4(e);
            return new Transform(new Matrix3x3(e[0], e[1], e[2], e[4], e[5], e[6], e[8], e[9], e[10]),
                                 new NVector3((float)e[3], (float)e[7], (float)e[11]));
        }
    }

    internal static unsafe class AlignmentImports
    {
        private const string Library = "VelarionCSharp";

        [System.Runtime.InteropServices.DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromDevicePositionToTrackingPosition")]
        internal static extern NVector3* DevicePositionToTracking(IntPtr self, NVector3* position);

        [System.Runtime.InteropServices.DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromDeviceDirectionToTrackingDirection")]
        internal static extern NVector3* DeviceDirectionToTracking(IntPtr self, NVector3* direction);

        [System.Runtime.InteropServices.DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromTrackingPositionToDevicePosition")]
        internal static extern NVector3* TrackingPositionToDevice(IntPtr self, NVector3* position);

        [System.Runtime.InteropServices.DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromTrackingDirectionToDeviceDirection")]
        internal static extern NVector3* TrackingDirectionToDevice(IntPtr self, NVector3* direction);
    }
}
