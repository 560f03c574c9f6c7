using System;
using System.Globalization;
using System.Numerics;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;

namespace Velarion.Demo
{
    // Walks a C# caller through the binding on the emulated device library.
    public static class Program
    {
        public static int Main()
        {
            CultureInfo.CurrentCulture = CultureInfo.InvariantCulture;
            Console.WriteLine("VelarionCSharp demo (emulated device library)");
            Console.WriteLine();
            Vectors();
            DeviceTable();
            AmplitudeModulation();
            StreamedCircle();
            return 0;
        }

        private static void Vectors()
        {
            Console.WriteLine("== Vectors ==");
            using var focus = new NVector3(0.02f, 0f, 0.2f);
            using var offset = new NVector3(0f, 0.01f, 0f);
            using var moved = focus + offset;
            using var direction = moved.Normalize();
            Console.WriteLine($"focus {Show(focus)} + offset {Show(offset)} = {Show(moved)}");
            Console.WriteLine($"|{Show(moved)}| = {moved.Length():0.######} m, direction {Show(direction)}");
            try
            {
                focus.Dot(null);
            }
            catch (ArgumentNullException e)
            {
                Console.WriteLine($"a null operand is reported as {e.GetType().Name}: {e.Message}");
            }
            Console.WriteLine();
        }

        // --- Amplitude modulation (a focal point on the first device) ---------

        private static void AmplitudeModulation()
        {
            Console.WriteLine("== Amplitude modulation ==");
            using var library = new VelarionLibrary();
            var identifiers = library.DeviceIdentifiers;
            Console.WriteLine($"devices: {string.Join(", ", identifiers)}");
            using var placement = new Transform();
            using var emitter = new AmplitudeModulationEmitter(identifiers[0], placement);
            Console.WriteLine($"emitter on {identifiers[0]}: connected {emitter.IsConnected}, " +
                              $"{emitter.SampleRate} Hz of {emitter.SampleRateLimit} Hz, " +
                              $"up to {emitter.MaximumControlPointLimit} points, " +
                              $"speed of sound {emitter.GetExtendedOption("speedOfSound")} m/s");
            using var points = new ControlPointCollection();
            using (var point = new AmplitudeModulationControlPoint(0.0f, 0.0f, 0.2f, 1.0f, 200.0f))
            {
                points.Add(point);
            }
            Console.WriteLine($"update with {points.Count} point at (0, 0, 0.2) m, 200 Hz: {emitter.Update(points)}");
            // The emulator renders the point in real time; watch the field it
            // makes for one second (the 200 Hz envelope swings it up and down).
            float focusPeak = 0f, besidePeak = 0f;
            var watch = System.Diagnostics.Stopwatch.StartNew();
            while (watch.Elapsed < TimeSpan.FromSeconds(1))
            {
                focusPeak = Math.Max(focusPeak, EmulatedAmplitudeModulation.PressureAmplitudeAt(new Vector3(0f, 0f, 0.2f)));
                besidePeak = Math.Max(besidePeak, EmulatedAmplitudeModulation.PressureAmplitudeAt(new Vector3(0.02f, 0f, 0.2f)));
                System.Threading.Thread.Sleep(3);
            }
            Console.WriteLine($"rendered for 1 s; peak carrier amplitude at the point: {focusPeak:0} Pa, 2 cm beside it: {besidePeak:0} Pa");

            // Maps of the field with the point at the top of its envelope.
            var clock = System.Diagnostics.Stopwatch.StartNew();
            // 201 points over 200 mm: one every millimetre.
            PressureMap side = EmulatedField.Map(emitter, FieldPlane.Vertical(new Vector3(0f, 0f, 0.2f), 0.2f, 0f, 0.3f), 201, 301);
            var sideTime = clock.Elapsed;
            PressureMap top = EmulatedField.Map(emitter, FieldPlane.Horizontal(0.2f, 0.2f, 0.2f), 201, 201);
            Console.WriteLine($"field maps ({side.Columns} x {side.Rows} points, {sideTime.TotalMilliseconds:0} ms): " +
                              $"peak {side.Peak:0} Pa RMS ({PressureMap.SoundPressureLevel(side.Peak):0} dB SPL) " +
                              $"at {Show(side.PeakPosition)} m");
            foreach (var (map, name) in new[] { (side, "field-vertical.png"), (top, "field-horizontal.png") })
            {
                string file = System.IO.Path.GetFullPath(name);
                FieldPlots.SavePressureMap(map, file);
                Console.WriteLine($"  {map.Plane.Name}: {file}");
            }
            Console.WriteLine($"stop: {emitter.Stop()}");
            Console.WriteLine();
        }

        private static string Show(Vector3 v) => $"({v.X:0.####}, {v.Y:0.####}, {v.Z:0.####})";

        private static string Show(NVector3 v) => $"({v.X:0.####}, {v.Y:0.####}, {v.Z:0.####})";

        // --- Device table ------------------------------------------------------

        private static void DeviceTable()
        {
            Console.WriteLine("== Devices ==");
            using var library = new VelarionLibrary();
            using var infos = library.GetDeviceInfos();
            Console.WriteLine($"{"identifier",-16} {"model",-6} {"serial",-9} {"firmware",-9} {"array (mm)",-11} {"elements",8}  features");
            foreach (var info in infos)
            {
                using (info)
                using (var layout = info.GetTransducerConfiguration())
                {
                    string identifier = info.DeviceIdentifier;
                    string state = library.IsDeviceConnected(identifier) ? "" : "  (disconnected)";
                    Console.WriteLine($"{identifier,-16} {info.ModelIdentifier,-6} {info.SerialNumber,-9} " +
                                      $"{info.FirmwareVersion,-9} {$"{info.ArrayWidth * 1000:0} x {info.ArrayDepth * 1000:0}",-11} " +
                                      $"{layout.Count,8}  {info.SupportedFeatures}{state}");
                }
            }
            Console.WriteLine();
        }

        // --- Time-point streaming: a circle drawn in real time -----------------

        private const float CircleRadius = 0.02f;      // m
        private const double CircleFrequency = 100.0;  // turns per second
        private const float CircleHeight = 0.2f;       // m above the array

        private static void StreamedCircle()
        {
            Console.WriteLine("== Time-point streaming ==");
            // The device library's own lines about streaming, as they happen.
            using var log = new DelegateLoggingCallback((message, level, _, area) =>
            {
                if (area == "TimePointStreaming") Console.WriteLine($"  [log] {message}");
            });
            using var library = new VelarionLibrary();
            var logging = library.Logging;
            for (uint level = 1; level <= 3; ++level) logging.SetCallback((DeviceLogLevel)level, log);

            var identifiers = library.DeviceIdentifiers;
            using var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(identifiers[0], placement);
            // Every time point gets the circle's position at that very time.
            using var callback = new DelegateEmissionCallback(interval =>
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    ref var point = ref interval[k, 0];
                    point.Position = CirclePosition(interval.TimePoints[k].Nanoseconds);
                    point.Intensity = 1f;
                    point.Enabled = true;
                    point.Modified = true;
                }
            });
            Console.WriteLine($"emitter on {identifiers[0]}: {emitter.SampleRate} Hz (limit {emitter.SampleRateLimit} Hz), " +
                              $"{emitter.MaximumControlPointCount} of {emitter.MaximumControlPointLimit} control points, " +
                              $"sampling interval {emitter.SamplingInterval.Nanoseconds} ns");
            Console.WriteLine($"a circle of {CircleRadius * 100:0} cm radius, {CircleFrequency:0} turns a second, " +
                              $"{CircleHeight * 100:0} cm above the array");
            emitter.SetEmissionCallback(callback);
            if (!emitter.Start())
            {
                Console.WriteLine("the emitter could not start");
                return;
            }

            var clock = System.Diagnostics.Stopwatch.StartNew();
            var duration = TimeSpan.FromSeconds(3);
            bool live = !Console.IsOutputRedirected;
            var nextLine = TimeSpan.FromSeconds(1);
            while (clock.Elapsed < duration)
            {
                System.Threading.Thread.Sleep(100);
                var now = EmulatedEmission.Statistics(emitter);
                string progress = $"  {clock.Elapsed.TotalSeconds:0.0} s: {now.Intervals} intervals, " +
                                  $"{now.TimePoints} time points, {now.MissedDeadlines} missed deadlines";
                if (live) Console.Write($"\r{progress}   ");
                else if (clock.Elapsed >= nextLine)
                {
                    Console.WriteLine(progress);
                    nextLine += TimeSpan.FromSeconds(1);
                }
            }
            if (live) Console.WriteLine();
            emitter.Stop();
            emitter.SetEmissionCallback(null);

            var s = EmulatedEmission.Statistics(emitter);
            Console.WriteLine($"intervals: {s.Intervals} ({(double)s.TimePoints / Math.Max(1UL, s.Intervals):0} time points each)");
            Console.WriteLine($"samples per second: {s.TimePoints / Math.Max(s.StreamedSeconds, 1e-9):0}");
            Console.WriteLine($"callback time: median {s.CallbackMedianMicroseconds:0.0} us, " +
                              $"99th percentile {s.CallbackP99Microseconds:0.0} us, maximum {s.CallbackMaximumMicroseconds:0.0} us");
            Console.WriteLine($"missed deadlines: {s.MissedDeadlines}" +
                              (s.MissedDeadlines > 0 ? $" (the latest answer came {s.WorstLatenessMicroseconds:0} us late)" : "") +
                              $"; real-time priority: {(s.RaisedPriority ? "yes" : "no")}");

            string picture = System.IO.Path.GetFullPath("streamed-circle.png");
            FieldPlots.SaveEmittedPath(EmulatedField.Path(emitter), picture, maximumSamples: 800);
            Console.WriteLine($"the emitted path (its last 800 samples, two turns): {picture}");
            // What a hand feels: the field of the circle averaged over one turn.
            var plane = FieldPlane.Horizontal(CircleHeight, 0.08f, 0.08f);
            PressureMap felt = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(10), 100, 100, frames: 20);
            string feltPicture = System.IO.Path.GetFullPath("streamed-field.png");
            FieldPlots.SavePressureMap(felt, feltPicture);
            Console.WriteLine($"the circle's field averaged over one turn (peak {felt.Peak:0} Pa RMS): {feltPicture}");
            for (uint level = 1; level <= 3; ++level) logging.SetCallback((DeviceLogLevel)level, null);
            Console.WriteLine();
        }

        private static Vector3 CirclePosition(long nanoseconds)
        {
            const long period = 10_000_000;  // one turn at 100 Hz, ns
            double angle = 2.0 * Math.PI * CircleFrequency * ((nanoseconds % period) / 1e9);
            return new Vector3((float)(CircleRadius * Math.Cos(angle)),
                                               (float)(CircleRadius * Math.Sin(angle)), CircleHeight);
        }
    }
}
