using System;
using System.Collections.Concurrent;
using System.Numerics;
using System.Threading;
using Velarion;
using Velarion.Emulation;

// The walk both consumer programs take, on .NET and under Mono: a virtual
// device added, streamed to, unplugged and plugged back in while a watcher
// reports it, the same emitter started again, and both kinds of field mapped
// (a still streamed point maps like the same point amplitude modulated).
static class DeviceRoundTrip
{
    // `warnings` receives the device library's warning lines.
    public static (PressureMap Streamed, PressureMap Modulated) Run(
        VelarionLibrary library, BlockingCollection<string> warnings, string identifier, TimeSpan timeout)
    {
        EmulatedDevices.AddGrid(identifier, 12, 12, 0.01f);
        using var watcher = new DeviceWatcher(library, TimeSpan.FromMilliseconds(5));
        var changes = new BlockingCollection<DeviceConnectionChangedEventArgs>();
        watcher.ConnectionChanged += (_, change) => changes.Add(change);
        watcher.Start();

        using var emitter = new TimePointStreamingEmitter(identifier);
        using var called = new SemaphoreSlim(0);
        // Records only, through the indexer: Debian's Mono cannot index the
        // interval's TimePoints span from netstandard2.1 code.
        using var callback = new DelegateEmissionCallback(interval =>
        {
            for (int k = 0; k < interval.TimePointCount; ++k)
            {
                ref var point = ref interval[k, 0];
                point.Position = new Vector3(0f, 0f, 0.12f);
                point.Intensity = 1f;
                point.Enabled = true;
                point.Modified = true;
            }
            called.Release();
        });
        emitter.SetEmissionCallback(callback);
        Require(emitter.TryStart(), "streaming starts");
        Require(called.Wait(timeout), "the emission callback is called");

        EmulatedDevices.Disconnect(identifier);
        Require(changes.TryTake(out var unplugged, timeout) && !unplugged.IsConnected, "the watcher sees the unplug");
        Require(!emitter.TryStart(), "an unplugged device does not start");
        Require(TakeUntil(warnings, $"Start refused: device {identifier} is not available: it is disconnected", timeout),
                "the refusal is logged with its cause");
        EmulatedDevices.Connect(identifier);
        Require(changes.TryTake(out var replugged, timeout) && replugged.IsConnected, "the watcher sees the replug");
        while (called.Wait(0)) { }
        Require(emitter.TryStart(), "the same emitter starts again after the replug");
        Require(called.Wait(timeout) && called.Wait(timeout), "streaming resumes");
        emitter.Stop();

        var plane = FieldPlane.Horizontal(0.12f, 0.06f, 0.06f);
        PressureMap streamed = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2), 30, 30, frames: 4);
        emitter.Dispose();  // releases the device at once
        using var modulating = new AmplitudeModulationEmitter(identifier);
        Require(modulating.TryUpdate(new[] { new AmplitudeModulationControlPoint(0f, 0f, 0.12f, 1f, 200f) }),
                "amplitude modulation starts");
        PressureMap modulated = EmulatedField.Map(modulating, plane, 30, 30);
        modulating.Stop();
        Require(Math.Abs(streamed.Peak - modulated.Peak) < 0.01f * modulated.Peak,
                "a fixed streamed point maps like amplitude modulation");
        return (streamed, modulated);
    }

    public static void Require(bool condition, string what)
    {
        if (!condition) throw new InvalidOperationException($"failed: {what}");
    }

    static bool TakeUntil(BlockingCollection<string> lines, string start, TimeSpan timeout)
    {
        while (lines.TryTake(out string line, timeout))
        {
            if (line.StartsWith(start, StringComparison.Ordinal)) return true;
        }
        return false;
    }
}
