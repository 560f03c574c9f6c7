using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>
    /// A control point as the emulator holds it after an interval.
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmulatedControlPoint
    {
        public readonly Vector3 Position;
        public readonly Vector3 Direction;
        public readonly float Intensity;
        public readonly float PhaseAngle;
        public readonly uint Id;
        public readonly uint CarriedValue;
        private readonly uint enabled;

        public bool Enabled => enabled != 0;
    }

    /// <summary>
    /// Deterministic time-point streaming on the emulator: a device-less emitter
    /// whose output intervals are delivered one at a time, on the calling
    /// thread, by <see cref="Step"/>. Control points keep their state from one
    /// interval to the next. Needs the emulator as the device library.
    /// </summary>
    public sealed class SteppedStreaming : IDisposable
    {
        private IntPtr emitter;

        public SteppedStreaming()
        {
            emitter = Native.VelarionEmulator_Streaming_newEmitter();
            Emitter = new TimePointStreamingEmitter(emitter, false);
        }

        /// <summary>The emitter to install an emission callback in; owned by this object.</summary>
        public TimePointStreamingEmitter Emitter { get; }

        /// <summary>
        /// Delivers one interval of <paramref name="timePointCount"/> time points,
        /// <paramref name="spacingNanoseconds"/> apart from
        /// <paramref name="firstTimeNanoseconds"/>, each with
        /// <paramref name="maximumControlPointCount"/> control points.
        /// </summary>
        /// <exception cref="InvalidOperationException">the native emission callback failed</exception>
        public void Step(long firstTimeNanoseconds, long spacingNanoseconds, uint timePointCount,
                         uint maximumControlPointCount)
        {
            if (Native.VelarionEmulator_Streaming_step(Handle, firstTimeNanoseconds, spacingNanoseconds, timePointCount,
                                                       maximumControlPointCount) != 0)
            {
                throw new InvalidOperationException("the emission callback failed in the device library");
            }
        }

        /// <summary>Control point <paramref name="index"/> of time point <paramref name="timePoint"/> of the last interval.</summary>
        public EmulatedControlPoint Delivered(uint timePoint, uint index)
        {
            if (Native.VelarionEmulator_Streaming_delivered(Handle, timePoint, index, out var point) != 0)
            {
                throw new ArgumentOutOfRangeException(nameof(timePoint), "outside the interval last delivered");
            }
            return point;
        }

        /// <summary>The state control point <paramref name="index"/> carries into the next interval.</summary>
        public EmulatedControlPoint Persistent(uint index)
        {
            Native.VelarionEmulator_Streaming_persistent(Handle, index, out var point);
            return point;
        }

        public void Dispose()
        {
            if (emitter != IntPtr.Zero)
            {
                Native.VelarionEmulator_Streaming_deleteEmitter(emitter);
                emitter = IntPtr.Zero;
            }
        }

        private IntPtr Handle => emitter != IntPtr.Zero ? emitter : throw new ObjectDisposedException(nameof(SteppedStreaming));

        private static class Native
        {
            private const string DeviceLibrary = "Velarion";

            [DllImport(DeviceLibrary)]
            public static extern IntPtr VelarionEmulator_Streaming_newEmitter();

            [DllImport(DeviceLibrary)]
            public static extern void VelarionEmulator_Streaming_deleteEmitter(IntPtr emitter);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_step(IntPtr emitter, long firstTimeNanoseconds,
                                                                     long spacingNanoseconds, uint timePointCount,
                                                                     uint maximumControlPointCount);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_delivered(IntPtr emitter, uint timePoint, uint index,
                                                                          out EmulatedControlPoint point);

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_persistent(IntPtr emitter, uint index,
                                                                           out EmulatedControlPoint point);
        }
    }
}
