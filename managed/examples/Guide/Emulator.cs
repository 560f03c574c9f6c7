using System;
using System.Collections.Concurrent;
using System.IO;
using System.Numerics;
using System.Threading;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;

namespace Velarion.Guide
{
    public static class Emulator
    {
        public static void UnplugAndReplug()
        {
            #region guide: unplug-replug
            // A virtual 8 x 8 array at 10 mm pitch, seen at once by the binding.
            EmulatedDevices.AddGrid("DEV-8X8", 8, 8, 0.01f);
            using var library = new VelarionLibrary();
            using var watcher = new DeviceWatcher(library, TimeSpan.FromMilliseconds(20));
            var changes = new BlockingCollection<DeviceConnectionChangedEventArgs>();
            watcher.ConnectionChanged += (_, change) => changes.Add(change);
            watcher.Start();

            using var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter("DEV-8X8", placement);
            using var called = new SemaphoreSlim(0);
            using var callback = new DelegateEmissionCallback(interval =>
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    ref var point = ref interval[k, 0];
                    point.Position = new Vector3(0f, 0f, 0.1f);
                    point.Intensity = 1f;
                    point.Enabled = true;
                    point.Modified = true;
                }
                called.Release();
            });
            emitter.SetEmissionCallback(callback);
            emitter.Start();
            called.Wait(TimeSpan.FromSeconds(5));

            EmulatedDevices.Disconnect("DEV-8X8");     // unplugged: streaming stops
            changes.TryTake(out _, TimeSpan.FromSeconds(5));   // "DEV-8X8" disconnected
            Console.WriteLine($"started while unplugged: {emitter.Start()}");   // False; the log says why
            EmulatedDevices.Connect("DEV-8X8");        // plugged back in
            changes.TryTake(out var change, TimeSpan.FromSeconds(5));
            Console.WriteLine($"{change.Identifier} connected: {change.IsConnected}, started again: {emitter.Start()}");
            emitter.Stop();
            emitter.SetEmissionCallback(null);
            #endregion
            EmulatedDevices.Remove("DEV-8X8");
        }

        public static void DrawStreamedField(string folder)
        {
            #region guide: streamed-field
            using var library = new VelarionLibrary();
            using var placement = new Transform();
            using var emitter = new TimePointStreamingEmitter(library.DeviceIdentifiers[0], placement);
            using var turns = new CountdownEvent(20);
            using var callback = new DelegateEmissionCallback(interval =>
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    // A 2 cm circle, 100 turns a second, 15 cm up.
                    double angle = 2 * Math.PI * 100 * (interval.TimePoints[k].Nanoseconds % 10_000_000) / 1e9;
                    ref var point = ref interval[k, 0];
                    point.Position = new Vector3(0.02f * (float)Math.Cos(angle), 0.02f * (float)Math.Sin(angle), 0.15f);
                    point.Intensity = 1f;
                    point.Enabled = true;
                    point.Modified = true;
                }
                if (!turns.IsSet) turns.Signal();
            });
            emitter.SetEmissionCallback(callback);
            emitter.Start();
            turns.Wait(TimeSpan.FromSeconds(5));   // 20 intervals: 40 ms of emission
            emitter.Stop();
            emitter.SetEmissionCallback(null);

            // What a hand feels: the field averaged over one turn (10 ms), 20 instants of it.
            var plane = FieldPlane.Horizontal(0.15f, width: 0.08f, depth: 0.08f);
            PressureMap felt = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(10), 60, 60, frames: 20);
            Console.WriteLine($"streamed: peak {felt.Peak:0} Pa RMS at {felt.PeakPosition * 1000:0.0} mm");
            FieldPlots.SavePressureMap(felt, Path.Combine(folder, "guide-streamed-field.png"));
            #endregion
        }
    }
}
