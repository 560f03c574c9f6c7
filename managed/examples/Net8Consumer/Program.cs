using System;
using System.Collections.Concurrent;
using System.IO;
using System.Numerics;
using System.Threading;
using Microsoft.Extensions.Logging;
using Velarion;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Velarion.Extensions.Logging;

// A net8.0 app on all four packages, as the package proof builds it: a virtual
// device added, streamed to, unplugged and plugged back in while a watcher
// reports it, the emitter started again, both kinds of field mapped and
// plotted, and the log routed into an ILogger.
var timeout = TimeSpan.FromSeconds(10);
var folder = Directory.CreateDirectory(Path.Combine(Path.GetTempPath(), $"velarion-net8-{Environment.ProcessId}")).FullName;
try
{
    using var library = new VelarionLibrary();
    var warnings = new BlockingCollection<string>();
    using var route = library.RouteLogTo(new Collector(warnings));

    EmulatedDevices.AddGrid("NET8-ARRAY", 12, 12, 0.01f);
    using var watcher = new DeviceWatcher(library, TimeSpan.FromMilliseconds(5));
    var changes = new BlockingCollection<DeviceConnectionChangedEventArgs>();
    watcher.ConnectionChanged += (_, change) => changes.Add(change);
    watcher.Start();

    using var placement = new Transform();
    using var emitter = new TimePointStreamingEmitter("NET8-ARRAY", placement);
    using var called = new SemaphoreSlim(0);
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
    Require(emitter.Start(), "streaming starts");
    Require(called.Wait(timeout), "the emission callback is called");

    EmulatedDevices.Disconnect("NET8-ARRAY");
    Require(changes.TryTake(out var unplugged, timeout) && !unplugged.IsConnected, "the watcher sees the unplug");
    Require(!emitter.Start(), "an unplugged device does not start");
    Require(TakeUntil(warnings, "Start refused: device NET8-ARRAY is not available: it is disconnected", timeout),
            "the refusal is logged with its cause");
    EmulatedDevices.Connect("NET8-ARRAY");
    Require(changes.TryTake(out var replugged, timeout) && replugged.IsConnected, "the watcher sees the replug");
    while (called.Wait(0)) { }
    Require(emitter.Start(), "the same emitter starts again after the replug");
    Require(called.Wait(timeout) && called.Wait(timeout), "streaming resumes");
    emitter.Stop();
    emitter.SetEmissionCallback(null);

    var plane = FieldPlane.Horizontal(0.12f, 0.06f, 0.06f);
    PressureMap streamed = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2), 30, 30, frames: 4);
    FieldPlots.SavePressureMap(streamed, Path.Combine(folder, "streamed.png"));
    emitter.Dispose();  // releases the device at once
    using var modulating = new AmplitudeModulationEmitter("NET8-ARRAY", placement);
    Require(modulating.Update(new AmplitudeModulationControlPoint(0f, 0f, 0.12f, 1f, 200f)), "amplitude modulation starts");
    PressureMap modulated = EmulatedField.Map(modulating, plane, 30, 30);
    FieldPlots.SavePressureMap(modulated, Path.Combine(folder, "modulated.png"));
    modulating.Stop();
    Require(Math.Abs(streamed.Peak - modulated.Peak) < 0.01f * modulated.Peak, "a fixed streamed point maps like amplitude modulation");

    Console.WriteLine($"net8.0 consumer on .NET {Environment.Version}: unplugged, replugged and streamed again; " +
                      $"fields peak at {streamed.Peak:0} Pa (streamed) and {modulated.Peak:0} Pa (modulated)");
    return 0;
}
catch (Exception e) when (e is not OutOfMemoryException)
{
    Console.Error.WriteLine($"net8.0 consumer: {e.Message}");
    return 1;
}
finally
{
    Directory.Delete(folder, true);
}

static void Require(bool condition, string what)
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

// Keeps the device library's warnings.
sealed class Collector(BlockingCollection<string> warnings) : ILogger
{
    public IDisposable BeginScope<TState>(TState state) where TState : notnull => null;
    public bool IsEnabled(LogLevel logLevel) => logLevel >= LogLevel.Warning;
    public void Log<TState>(LogLevel logLevel, EventId eventId, TState state, Exception exception,
                            Func<TState, Exception, string> formatter)
    {
        if (IsEnabled(logLevel)) warnings.Add(formatter(state, exception));
    }
}
