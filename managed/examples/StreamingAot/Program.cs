using System;
using System.Diagnostics;
using System.Numerics;
using System.Threading;
using Velarion;
using Velarion.Emulation;

namespace Velarion.Examples
{
    // Streams a circle for half a second on the emulator, with a log callback
    // and a suspension override installed, and checks what the device emitted.
    // Exits 0 when every path from the device library into C# worked.
    internal static class Program
    {
        private sealed class Circle : EmissionCallback
        {
            public int Calls;
            public int Asked;

            protected override bool OnIsSuspended()
            {
                Interlocked.Increment(ref Asked);
                return false;
            }

            protected override void OnEmission(EmissionInterval interval)
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    double t = interval.TimePoints[k].Nanoseconds / 1e9;
                    ref var record = ref interval[k, 0];
                    record.Position = new Vector3((float)(0.02 * Math.Cos(2 * Math.PI * 100 * t)),
                                                  (float)(0.02 * Math.Sin(2 * Math.PI * 100 * t)), 0.2f);
                    record.Intensity = 1f;
                    record.Enabled = true;
                    record.Modified = true;
                }
                Interlocked.Increment(ref Calls);
            }
        }

        private static int Main()
        {
            int lines = 0;
            using var log = new DelegateLoggingCallback((message, level, area) => Interlocked.Increment(ref lines));
            using var library = new VelarionLibrary();
            library.Logging.RedirectToNull();
            library.Logging.SetCallback(DeviceLogLevel.Info, log);
            string device = library.DeviceIdentifiers[0];
            using var emitter = new TimePointStreamingEmitter(device);
            using var circle = new Circle();
            emitter.SetEmissionCallback(circle);
            if (!emitter.TryStart())
            {
                Console.Error.WriteLine("the emitter could not start");
                return 1;
            }
            var watch = Stopwatch.StartNew();
            while (watch.Elapsed < TimeSpan.FromSeconds(0.5)) Thread.Sleep(10);
            emitter.Stop();
            library.Logging.SetCallback(DeviceLogLevel.Info, null);

            var samples = EmulatedEmission.Samples(emitter);
            int onCircle = 0;
            foreach (var sample in samples)
            {
                if (sample.Enabled && Math.Abs(new Vector2(sample.Position.X, sample.Position.Y).Length() - 0.02f) < 1e-5f) ++onCircle;
            }
            Console.WriteLine($"NativeAOT streaming on {device}: {circle.Calls} intervals, {circle.Asked} suspension queries, " +
                              $"{samples.Length} samples ({onCircle} on the circle), {lines} log lines");
            bool ok = circle.Calls > 0 && circle.Asked > 0 && samples.Length > 0 && onCircle == samples.Length && lines > 0;
            return ok ? 0 : 1;
        }
    }
}
