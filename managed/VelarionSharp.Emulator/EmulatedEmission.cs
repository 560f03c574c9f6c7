using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>One control point of one time point the emulator emitted, in the emitter's space.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmittedSample
    {
        /// <summary>Nanoseconds of the steady clock, as <see cref="HostTime.Nanoseconds"/>.</summary>
        public readonly long TimeNanoseconds;
        public readonly Vector3 Position;
        public readonly float Intensity;
        /// <summary>The control point's column within its time point.</summary>
        public readonly uint Index;
        private readonly uint enabled;

        public bool Enabled => enabled != 0;
    }

    /// <summary>What an emulated emitter's emission thread measured in its current or last run.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmissionStatistics
    {
        public readonly ulong Intervals;
        public readonly ulong TimePoints;
        /// <summary>Intervals whose callback returned after their first time point was due.</summary>
        public readonly ulong MissedDeadlines;
        public readonly double CallbackMedianMicroseconds;
        public readonly double CallbackP99Microseconds;
        public readonly double CallbackMaximumMicroseconds;
        public readonly double WorstLatenessMicroseconds;
        /// <summary>From the first to the last time point handed out.</summary>
        public readonly double StreamedSeconds;
        private readonly uint emitting;
        private readonly uint raisedPriority;

        public bool Emitting => emitting != 0;
        /// <summary>The emission thread got a real-time scheduling priority.</summary>
        public bool RaisedPriority => raisedPriority != 0;
    }

    /// <summary>
    /// Reads back what a started <see cref="TimePointStreamingEmitter"/> emitted
    /// on the emulator: its statistics and the newest samples (a few seconds'
    /// worth). Needs the emulator as the device library.
    /// </summary>
    public static class EmulatedEmission
    {
        public static EmissionStatistics Statistics(TimePointStreamingEmitter emitter)
        {
            if (Native.VelarionEmulator_Streaming_statistics(Handle(emitter), out var statistics) != 0)
            {
                throw new ArgumentException("not an emitter of the emulated device library", nameof(emitter));
            }
            return statistics;
        }

        /// <summary>The recorded samples, oldest first.</summary>
        public static EmittedSample[] Samples(TimePointStreamingEmitter emitter)
        {
            var handle = Handle(emitter);
            // The thread may add more between the two calls; the newest that fit are kept.
            var samples = new EmittedSample[Native.VelarionEmulator_Streaming_emittedSamples(handle, null, 0)];
            uint copied = Native.VelarionEmulator_Streaming_emittedSamples(handle, samples, (uint)samples.Length);
            if (copied < samples.Length) Array.Resize(ref samples, (int)copied);
            return samples;
        }

        private static IntPtr Handle(TimePointStreamingEmitter emitter)
        {
            if (emitter == null) throw new ArgumentNullException(nameof(emitter));
            return TimePointStreamingEmitter.getCPtr(emitter).Handle;
        }

        private static class Native
        {
            private const string DeviceLibrary = "Velarion";

            [DllImport(DeviceLibrary)]
            public static extern int VelarionEmulator_Streaming_statistics(IntPtr handle, out EmissionStatistics statistics);

            [DllImport(DeviceLibrary)]
            public static extern uint VelarionEmulator_Streaming_emittedSamples(
                IntPtr handle, [Out] EmittedSample[] samples, uint capacity);
        }
    }
}
