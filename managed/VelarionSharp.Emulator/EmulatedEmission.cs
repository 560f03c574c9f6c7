using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>
    /// One control point of one time point the emulator emitted, in the
    /// emitter's space: a copy, read back after the emission thread wrote it.
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmittedSample
    {
        /// <summary>Nanoseconds of the steady clock, as <see cref="HostTime.Nanoseconds"/>.</summary>
        public readonly long TimeNanoseconds;
        /// <summary>Where the point was, metres, emitter space.</summary>
        public readonly Vector3 Position;
        /// <summary>The intensity emitted, from -1 to 1 (1: full strength).</summary>
        public readonly float Intensity;
        /// <summary>The control point's column within its time point.</summary>
        public readonly uint Index;
        private readonly uint enabled;

        /// <summary>Whether the point was emitted; false: the array left it silent in this time point.</summary>
        public bool Enabled => enabled != 0;
    }

    /// <summary>
    /// What an emulated emitter's emission thread measured in its current or
    /// last run (each <c>start</c> begins a new one): a snapshot, copied when read.
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct EmissionStatistics
    {
        /// <summary>Output intervals handed to the emission callback (about 2 ms of time points each).</summary>
        public readonly ulong Intervals;
        /// <summary>Time points handed out, over every interval.</summary>
        public readonly ulong TimePoints;
        /// <summary>
        /// Intervals whose callback returned after their first time point was due
        /// (<see cref="LateCalls"/> of them reached the callback already late).
        /// </summary>
        public readonly ulong MissedDeadlines;
        /// <summary>Median time the emission callback took, microseconds, over the newest 65536 callbacks.</summary>
        public readonly double CallbackMedianMicroseconds;
        /// <summary>99th percentile of the callback's time, microseconds, over the newest 65536 callbacks.</summary>
        public readonly double CallbackP99Microseconds;
        /// <summary>Longest time the callback took, microseconds, over the newest 65536 callbacks.</summary>
        public readonly double CallbackMaximumMicroseconds;
        /// <summary>How late the latest late answer came, microseconds; 0 when no deadline was missed.</summary>
        public readonly double WorstLatenessMicroseconds;
        /// <summary>From the first to the last time point handed out, seconds.</summary>
        public readonly double StreamedSeconds;
        private readonly uint emitting;
        private readonly uint raisedPriority;
        /// <summary>
        /// Missed deadlines whose interval reached the callback already past its
        /// deadline: the emission thread got to it late (the system woke it late,
        /// or it was catching up after an earlier late interval), not the callback.
        /// The other missed deadlines are their callback's own slowness.
        /// </summary>
        public readonly ulong LateCalls;
        /// <summary>
        /// How much later than asked the system woke the emission thread for an
        /// interval, at worst, microseconds: scheduling latency of the machine.
        /// </summary>
        public readonly double WorstWakeUpLatenessMicroseconds;

        /// <summary>
        /// True from <c>start</c> until the emission thread has ended, its last
        /// log lines included; false once it is over (or never started).
        /// </summary>
        public bool Emitting => emitting != 0;
        /// <summary>
        /// The emission thread got a real-time scheduling priority; false: it ran
        /// at normal priority (the system refused).
        /// </summary>
        public bool RaisedPriority => raisedPriority != 0;
    }

    /// <summary>
    /// Reads back what a started <see cref="TimePointStreamingEmitter"/> emitted
    /// on the emulator: its statistics and the newest samples (a few seconds'
    /// worth). Needs the emulator as the device library.
    /// </summary>
    public static class EmulatedEmission
    {
        /// <summary>
        /// What <paramref name="emitter"/>'s emission thread measured so far; safe
        /// to call from any thread while it runs.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> is null</exception>
        /// <exception cref="ArgumentException">the emitter is not one of the emulated device library's</exception>
        public static EmissionStatistics Statistics(TimePointStreamingEmitter emitter)
        {
            if (Native.VelarionEmulator_Streaming_statistics(Handle(emitter), out var statistics) != 0)
            {
                throw new ArgumentException("not an emitter of the emulated device library", nameof(emitter));
            }
            return statistics;
        }

        /// <summary>
        /// The recorded samples, oldest first: a copy the caller owns (empty for an
        /// emitter that is not the emulator's). Safe to call while the thread runs.
        /// </summary>
        /// <exception cref="ArgumentNullException"><paramref name="emitter"/> is null</exception>
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
