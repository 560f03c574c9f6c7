using System;
using System.Collections.Generic;
using System.Collections.ObjectModel;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>One array of an emitter, placed in the emitter's space (metres).</summary>
    public sealed class EmulatedArray
    {
        internal EmulatedArray(in Native.FieldDevice d)
        {
            Identifier = d.Identifier;
            Outline = Array.AsReadOnly(new[] { d.Corner(0), d.Corner(1), d.Corner(2), d.Corner(3) });
            Centre = new Vector3(d.CentreX, d.CentreY, d.CentreZ);
            Normal = new Vector3(d.NormalX, d.NormalY, d.NormalZ);
            TransducerCount = (int)d.Transducers;
            Present = d.Present != 0;
        }

        /// <summary>The device's identifier, as its <c>DeviceInfo</c> gives it.</summary>
        public string Identifier { get; }

        /// <summary>The four corners of the array's face, in order around it.</summary>
        public IReadOnlyList<Vector3> Outline { get; }

        /// <summary>The centre of the array's face, metres.</summary>
        public Vector3 Centre { get; }

        /// <summary>The way the array faces (unit vector).</summary>
        public Vector3 Normal { get; }

        /// <summary>
        /// Amplitude modulation: elements driven in the current frame (0 while
        /// silent). Streaming: the array's element count.
        /// </summary>
        public int TransducerCount { get; }

        /// <summary>False once the device was disconnected or removed under its emitter.</summary>
        public bool Present { get; }

        /// <summary>The <see cref="Identifier"/>.</summary>
        public override string ToString() => Identifier;
    }

    /// <summary>Which frame of an amplitude modulation emitter a <see cref="PressureMap"/> shows.</summary>
    public enum FieldMoment
    {
        /// <summary>
        /// Every control point at the top of its modulation envelope: where the
        /// pressure goes, whatever the moment.
        /// </summary>
        EnvelopePeak = 1,

        /// <summary>
        /// The frame emitted at the moment of the call: the same numbers as
        /// <see cref="EmulatedAmplitudeModulation.PressureAmplitudeAt"/> (over √2).
        /// The emission thread moves the envelope on; for a chosen moment turn on
        /// <see cref="EmulatedAmplitudeModulation.ManualStepping"/>.
        /// </summary>
        CurrentFrame = 0,

        /// <summary>
        /// A time-point streaming emitter's field averaged over a window of what
        /// it emitted: the RMS over time, what a hand in the field feels.
        /// </summary>
        TimeAverage = 2,
    }

    /// <summary>A control point of an amplitude modulation emitter's last update.</summary>
    public readonly struct FocalPoint
    {
        internal FocalPoint(Vector3 position, float intensity, float frequency)
        {
            Position = position;
            Intensity = intensity;
            Frequency = frequency;
        }

        /// <summary>Emitter space, metres.</summary>
        public Vector3 Position { get; }

        /// <summary>The intensity of the last update (1: full strength).</summary>
        public float Intensity { get; }

        /// <summary>Modulation frequency, hertz.</summary>
        public float Frequency { get; }
    }

    /// <summary>
    /// The RMS pressure of the 40 kHz carrier on a <see cref="FieldPlane"/>, in
    /// pascals, as the emulator's acoustic model computes it for one frame of
    /// an emitter, with the emitter's arrays and control points at that moment.
    /// </summary>
    public sealed class PressureMap
    {
        private readonly float[] values;

        internal PressureMap(FieldPlane plane, FieldMoment moment, int columns, int rows, float[] values,
                             IReadOnlyList<EmulatedArray> devices, IReadOnlyList<FocalPoint> focalPoints,
                             TimeSpan window = default)
        {
            Plane = plane;
            Moment = moment;
            Window = window;
            Columns = columns;
            Rows = rows;
            this.values = values;
            Devices = devices;
            FocalPoints = focalPoints;
            for (int i = 1; i < values.Length; ++i)
            {
                if (values[i] > values[PeakIndex]) PeakIndex = i;
            }
        }

        private int PeakIndex { get; }

        /// <summary>The plane the map covers.</summary>
        public FieldPlane Plane { get; }

        /// <summary>The frame the map shows.</summary>
        public FieldMoment Moment { get; }

        /// <summary>
        /// For <see cref="FieldMoment.TimeAverage"/>: the span of emission the map
        /// averages, ending at the newest recorded sample; zero for the other moments.
        /// </summary>
        public TimeSpan Window { get; }

        /// <summary>Grid points along the plane's horizontal axis.</summary>
        public int Columns { get; }

        /// <summary>Grid points along the plane's vertical axis.</summary>
        public int Rows { get; }

        /// <summary>
        /// RMS pressure in pascals at grid point (<paramref name="row"/>,
        /// <paramref name="column"/>); row 0 is at <see cref="FieldPlane.Bottom"/>,
        /// column 0 at <see cref="FieldPlane.Left"/>.
        /// </summary>
        public float this[int row, int column]
        {
            get
            {
                if ((uint)row >= (uint)Rows) throw new ArgumentOutOfRangeException(nameof(row), row, $"a map has {Rows} rows");
                if ((uint)column >= (uint)Columns)
                {
                    throw new ArgumentOutOfRangeException(nameof(column), column, $"a map has {Columns} columns");
                }
                return values[row * Columns + column];
            }
        }

        /// <summary>Every value, row after row from the bottom.</summary>
        public ReadOnlySpan<float> Values => values;

        /// <summary>Horizontal plane coordinate of a column, metres.</summary>
        public float ColumnCoordinate(int column) => Coordinate(Plane.Left, Plane.Right, Columns, column);

        /// <summary>Vertical plane coordinate of a row, metres.</summary>
        public float RowCoordinate(int row) => Coordinate(Plane.Bottom, Plane.Top, Rows, row);

        /// <summary>Distance between neighbouring columns, metres (0 for a single column).</summary>
        public float ColumnSpacing => Columns > 1 ? (Plane.Right - Plane.Left) / (Columns - 1) : 0f;

        /// <summary>Distance between neighbouring rows, metres (0 for a single row).</summary>
        public float RowSpacing => Rows > 1 ? (Plane.Top - Plane.Bottom) / (Rows - 1) : 0f;

        /// <summary>The grid point in emitter space.</summary>
        public Vector3 PositionOf(int row, int column) => Plane.PointAt(ColumnCoordinate(column), RowCoordinate(row));

        /// <summary>The highest value of the map.</summary>
        public float Peak => values[PeakIndex];

        /// <summary>Where the highest value lies, emitter space.</summary>
        public Vector3 PeakPosition => PositionOf(PeakIndex / Columns, PeakIndex % Columns);

        /// <summary>The arrays of the emitter, emitter space.</summary>
        public IReadOnlyList<EmulatedArray> Devices { get; }

        /// <summary>The control points of the emitter's last update (none for a streaming emitter's map).</summary>
        public IReadOnlyList<FocalPoint> FocalPoints { get; }

        /// <summary>Sound pressure level in dB SPL (re 20 µPa) of an RMS pressure in pascals.</summary>
        public static double SoundPressureLevel(double rmsPascals) => 20.0 * Math.Log10(rmsPascals / 20e-6);

        private static float Coordinate(float low, float high, int count, int index)
        {
            if ((uint)index >= (uint)count) throw new ArgumentOutOfRangeException(nameof(index), index, $"a map has {count}");
            return count == 1 ? (low + high) / 2 : low + (high - low) * index / (count - 1);
        }
    }

    /// <summary>
    /// What a started <see cref="TimePointStreamingEmitter"/> emitted, with the
    /// arrays it emitted from: the samples the emulator recorded (the newest few
    /// seconds), oldest first.
    /// </summary>
    public sealed class EmittedPath
    {
        internal EmittedPath(EmittedSample[] samples, IReadOnlyList<EmulatedArray> devices)
        {
            Samples = Array.AsReadOnly(samples);
            Devices = devices;
        }

        /// <summary>The recorded samples, oldest first.</summary>
        public IReadOnlyList<EmittedSample> Samples { get; }

        /// <summary>The arrays of the emitter when the path was read, emitter space.</summary>
        public IReadOnlyList<EmulatedArray> Devices { get; }

        /// <summary>From the first recorded sample to the last.</summary>
        public TimeSpan Duration =>
            Samples.Count < 2
                ? TimeSpan.Zero
                : TimeSpan.FromTicks((Samples[Samples.Count - 1].TimeNanoseconds - Samples[0].TimeNanoseconds) / 100);
    }

    /// <summary>
    /// What the emulated arrays emit, as maps and paths to look at: the pressure
    /// an amplitude modulation emitter makes on a plane, the pressure a
    /// time-point streaming emitter made there averaged over time, and the path
    /// it drew. Needs the emulator as the device library.
    /// </summary>
    public static class EmulatedField
    {
        /// <summary>The largest grid one map may hold (columns times rows).</summary>
        public const int MaximumPoints = 1 << 26;

        /// <summary>
        /// The RMS pressure that <paramref name="emitter"/>'s control points make
        /// on <paramref name="plane"/>, sampled at <paramref name="columns"/> ×
        /// <paramref name="rows"/> points from edge to edge, with every point at
        /// the top of its modulation envelope unless <paramref name="moment"/>
        /// asks for the frame emitted now. Only the emitter's own arrays count;
        /// a stopped emitter maps to zero. A 200 × 200 map takes a fraction of a
        /// second, on every core.
        /// </summary>
        /// <param name="emitter">The emitter whose field to map.</param>
        /// <param name="plane">Where to sample the field.</param>
        /// <param name="columns">Grid points along the plane's horizontal axis.</param>
        /// <param name="rows">Grid points along the plane's vertical axis.</param>
        /// <param name="moment"><see cref="FieldMoment.EnvelopePeak"/> or <see cref="FieldMoment.CurrentFrame"/>.</param>
        /// <returns>The map, with the emitter's arrays and control points.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> or <paramref name="plane"/> is null.</exception>
        /// <exception cref="ArgumentOutOfRangeException">A grid size below 1 or above <see cref="MaximumPoints"/> points, or a moment that is not one of the two.</exception>
        /// <exception cref="ArgumentException">The emitter is not one of the emulated device library's, or was disposed.</exception>
        /// <exception cref="InvalidOperationException">The emitter holds no device (it was made for a device it could not claim, or its devices were removed).</exception>
        public static PressureMap Map(AmplitudeModulationEmitter emitter, FieldPlane plane, int columns = 200, int rows = 200,
                                      FieldMoment moment = FieldMoment.EnvelopePeak)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            if (moment != FieldMoment.EnvelopePeak && moment != FieldMoment.CurrentFrame)
            {
                throw new ArgumentOutOfRangeException(nameof(moment), moment, "not a moment a map can show");
            }
            var grid = Grid(plane, columns, rows);

            IntPtr handle = AmplitudeModulationEmitter.getCPtr(emitter).Handle;
            var devices = ReadDevices(handle, Native.VelarionEmulator_AmplitudeModulation_fieldDevices);
            if (devices.Count == 0) throw NoDevice("amplitude modulation");
            var focalPoints = ReadFocalPoints(handle);
            var values = new float[columns * rows];
            int result = Native.VelarionEmulator_AmplitudeModulation_pressureField(handle, in grid, (int)moment, values,
                                                                                   (ulong)values.Length);
            GC.KeepAlive(emitter);
            Check(result, "amplitude modulation");
            return new PressureMap(plane, moment, columns, rows, values, devices, focalPoints);
        }

        /// <summary>
        /// The RMS pressure a time-point streaming emitter made on
        /// <paramref name="plane"/>, averaged over the newest
        /// <paramref name="window"/> of the samples it emitted (and recorded):
        /// the map of what a hand feels. The field of each of up to
        /// <paramref name="frames"/> time points spread evenly over the window is
        /// computed as the arrays focusing every enabled control point at its
        /// intensity, and their squares are averaged. Cost grows with
        /// <paramref name="frames"/> times the grid: a 200 × 200 map of 16 frames
        /// takes a few seconds; use a coarser grid for a quick look.
        /// </summary>
        /// <param name="emitter">A streaming emitter that has emitted (it may still be running, or stopped).</param>
        /// <param name="plane">Where to sample the field.</param>
        /// <param name="window">How much of the newest emission to average, for example the period of the pattern drawn.</param>
        /// <param name="columns">Grid points along the plane's horizontal axis.</param>
        /// <param name="rows">Grid points along the plane's vertical axis.</param>
        /// <param name="frames">How many time points of the window to compute (1 to 4096).</param>
        /// <returns>The map (<see cref="FieldMoment.TimeAverage"/>), with the emitter's arrays.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> or <paramref name="plane"/> is null.</exception>
        /// <exception cref="ArgumentOutOfRangeException">A grid size below 1 or above <see cref="MaximumPoints"/> points, a window that is not positive, or a frame count outside 1 to 4096.</exception>
        /// <exception cref="ArgumentException">The emitter is not one of the emulated device library's, or was disposed.</exception>
        /// <exception cref="InvalidOperationException">The emitter holds no device, or has emitted nothing yet.</exception>
        public static PressureMap Map(TimePointStreamingEmitter emitter, FieldPlane plane, TimeSpan window, int columns = 200,
                                      int rows = 200, int frames = 16)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            if (window <= TimeSpan.Zero) throw new ArgumentOutOfRangeException(nameof(window), window, "a window is a positive span");
            if (frames < 1 || frames > 4096) throw new ArgumentOutOfRangeException(nameof(frames), frames, "from 1 to 4096 frames");
            var grid = Grid(plane, columns, rows);

            IntPtr handle = TimePointStreamingEmitter.getCPtr(emitter).Handle;
            var devices = ReadDevices(handle, Native.VelarionEmulator_Streaming_fieldDevices);
            if (devices.Count == 0) throw NoDevice("time-point streaming");
            var values = new float[columns * rows];
            int result = Native.VelarionEmulator_Streaming_pressureField(handle, in grid, window.Ticks * 100, (uint)frames,
                                                                         values, (ulong)values.Length);
            GC.KeepAlive(emitter);
            Check(result, "time-point streaming");
            return new PressureMap(plane, FieldMoment.TimeAverage, columns, rows, values, devices,
                                   Array.AsReadOnly(Array.Empty<FocalPoint>()), window);
        }

        private static Native.FieldGrid Grid(FieldPlane plane, int columns, int rows)
        {
            if (plane == null) throw new ArgumentNullException(nameof(plane));
            if (columns < 1) throw new ArgumentOutOfRangeException(nameof(columns), columns, "a map needs at least one column");
            if (rows < 1) throw new ArgumentOutOfRangeException(nameof(rows), rows, "a map needs at least one row");
            if ((long)columns * rows > MaximumPoints)
            {
                throw new ArgumentOutOfRangeException(nameof(rows), rows, $"a map holds at most {MaximumPoints} points");
            }
            float columnStep = columns > 1 ? (plane.Right - plane.Left) / (columns - 1) : 0f;
            float rowStep = rows > 1 ? (plane.Top - plane.Bottom) / (rows - 1) : 0f;
            float firstColumn = columns > 1 ? plane.Left : (plane.Left + plane.Right) / 2;
            float firstRow = rows > 1 ? plane.Bottom : (plane.Bottom + plane.Top) / 2;
            return new Native.FieldGrid(plane.PointAt(firstColumn, firstRow), columnStep * plane.HorizontalAxis,
                                        rowStep * plane.VerticalAxis, (uint)columns, (uint)rows);
        }

        private static void Check(int result, string kind)
        {
            switch (result)
            {
                case 0:
                    return;
                case Native.UnknownEmitter:
                    throw NotEmulated("emitter");
                case Native.NoDevice:
                    throw NoDevice(kind);
                case Native.NoSamples:
                    throw new InvalidOperationException(
                        "the time-point streaming emitter has emitted nothing to map yet: start it first");
                default:
                    throw new ArgumentException($"the emulator refused the grid ({result})", "plane");
            }
        }

        private static InvalidOperationException NoDevice(string kind) =>
            new InvalidOperationException($"the {kind} emitter holds no device, so it makes no field to map");

        /// <summary>The arrays of an amplitude modulation emitter.</summary>
        public static IReadOnlyList<EmulatedArray> Devices(AmplitudeModulationEmitter emitter)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            var devices = ReadDevices(AmplitudeModulationEmitter.getCPtr(emitter).Handle,
                                      Native.VelarionEmulator_AmplitudeModulation_fieldDevices);
            GC.KeepAlive(emitter);
            return devices;
        }

        /// <summary>The arrays of a time-point streaming emitter.</summary>
        public static IReadOnlyList<EmulatedArray> Devices(TimePointStreamingEmitter emitter)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            var devices = ReadDevices(TimePointStreamingEmitter.getCPtr(emitter).Handle, Native.VelarionEmulator_Streaming_fieldDevices);
            GC.KeepAlive(emitter);
            return devices;
        }

        /// <summary>
        /// The samples <paramref name="emitter"/> emitted (see
        /// <see cref="EmulatedEmission.Samples"/>) with its arrays. Read it after
        /// <c>stop</c> for a path that no longer grows.
        /// </summary>
        public static EmittedPath Path(TimePointStreamingEmitter emitter) =>
            new EmittedPath(EmulatedEmission.Samples(emitter), Devices(emitter));

        private delegate int DeviceQuery(IntPtr emitter, [Out] Native.FieldDevice[] devices, uint capacity);

        private static IReadOnlyList<EmulatedArray> ReadDevices(IntPtr handle, DeviceQuery query)
        {
            int count = query(handle, null, 0);
            if (count < 0) throw NotEmulated("emitter");
            var raw = new Native.FieldDevice[count];
            // Devices may come and go between the two calls; what was written counts.
            count = Math.Min(count, query(handle, raw, (uint)raw.Length));
            if (count < 0) throw NotEmulated("emitter");
            var devices = new EmulatedArray[count];
            for (int i = 0; i < count; ++i) devices[i] = new EmulatedArray(raw[i]);
            return Array.AsReadOnly(devices);
        }

        private static IReadOnlyList<FocalPoint> ReadFocalPoints(IntPtr handle)
        {
            int count = Native.VelarionEmulator_AmplitudeModulation_fieldPoints(handle, null, 0);
            if (count < 0) throw NotEmulated("emitter");
            var raw = new Native.FieldPoint[count];
            count = Math.Min(count, Native.VelarionEmulator_AmplitudeModulation_fieldPoints(handle, raw, (uint)raw.Length));
            var points = new FocalPoint[Math.Max(0, count)];
            for (int i = 0; i < points.Length; ++i)
            {
                points[i] = new FocalPoint(new Vector3(raw[i].X, raw[i].Y, raw[i].Z), raw[i].Intensity, raw[i].Frequency);
            }
            return new ReadOnlyCollection<FocalPoint>(points);
        }

        private static ArgumentException NotEmulated(string parameter) =>
            new ArgumentException("not a live emitter of the emulated device library", parameter);
    }

    internal static class Native
    {
        private const string DeviceLibrary = "Velarion";
        internal const int UnknownEmitter = -1;
        internal const int NoDevice = -5;
        internal const int NoSamples = -6;

        [StructLayout(LayoutKind.Sequential)]
        internal readonly struct FieldGrid
        {
            public FieldGrid(Vector3 origin, Vector3 columnStep, Vector3 rowStep, uint columns, uint rows)
            {
                Origin = origin;
                ColumnStep = columnStep;
                RowStep = rowStep;
                Columns = columns;
                Rows = rows;
            }

            public readonly Vector3 Origin;
            public readonly Vector3 ColumnStep;
            public readonly Vector3 RowStep;
            public readonly uint Columns;
            public readonly uint Rows;
        }

        [StructLayout(LayoutKind.Sequential)]
        internal unsafe struct FieldDevice
        {
            private fixed byte identifier[128];
            private fixed float corners[12];
            public float CentreX, CentreY, CentreZ;
            public float NormalX, NormalY, NormalZ;
            public uint Transducers;
            public uint Present;

            public string Identifier
            {
                get
                {
                    fixed (byte* text = identifier) return Marshal.PtrToStringUTF8((IntPtr)text) ?? "";
                }
            }

            public Vector3 Corner(int i) => new Vector3(corners[3 * i], corners[3 * i + 1], corners[3 * i + 2]);
        }

        [StructLayout(LayoutKind.Sequential)]
        internal struct FieldPoint
        {
            public float X, Y, Z;
            public float Intensity;
            public float Frequency;
        }

        [DllImport(DeviceLibrary)]
        public static extern int VelarionEmulator_AmplitudeModulation_pressureField(
            IntPtr emitter, in FieldGrid grid, int moment, [Out] float[] values, ulong capacity);

        [DllImport(DeviceLibrary)]
        public static extern int VelarionEmulator_Streaming_pressureField(
            IntPtr emitter, in FieldGrid grid, long windowNanoseconds, uint frames, [Out] float[] values, ulong capacity);

        [DllImport(DeviceLibrary)]
        public static extern int VelarionEmulator_AmplitudeModulation_fieldDevices(
            IntPtr emitter, [Out] FieldDevice[] devices, uint capacity);

        [DllImport(DeviceLibrary)]
        public static extern int VelarionEmulator_Streaming_fieldDevices(
            IntPtr emitter, [Out] FieldDevice[] devices, uint capacity);

        [DllImport(DeviceLibrary)]
        public static extern int VelarionEmulator_AmplitudeModulation_fieldPoints(
            IntPtr emitter, [Out] FieldPoint[] points, uint capacity);
    }
}
