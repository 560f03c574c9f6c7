using System;
using System.Collections.Concurrent;
using System.IO;
using System.Linq;
using System.Numerics;
using System.Threading;
using Microsoft.Extensions.Logging;
using Velarion;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Velarion.Extensions.Logging;
using Velarion.Sensations;
using Matrix4x4 = System.Numerics.Matrix4x4;  // Velarion has one too

// A net8.0 app on every package, as the package proof builds it: a virtual
// device added, streamed to, unplugged and plugged back in while a watcher
// reports it, the emitter started again, both kinds of field mapped and
// plotted, a circle played by the sensation player, and the log routed into
// an ILogger.
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

    using var emitter = new TimePointStreamingEmitter("NET8-ARRAY");
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
    Require(emitter.TryStart(), "streaming starts");
    Require(called.Wait(timeout), "the emission callback is called");

    EmulatedDevices.Disconnect("NET8-ARRAY");
    Require(changes.TryTake(out var unplugged, timeout) && !unplugged.IsConnected, "the watcher sees the unplug");
    Require(!emitter.TryStart(), "an unplugged device does not start");
    Require(TakeUntil(warnings, "Start refused: device NET8-ARRAY is not available: it is disconnected", timeout),
            "the refusal is logged with its cause");
    EmulatedDevices.Connect("NET8-ARRAY");
    Require(changes.TryTake(out var replugged, timeout) && replugged.IsConnected, "the watcher sees the replug");
    while (called.Wait(0)) { }
    Require(emitter.TryStart(), "the same emitter starts again after the replug");
    Require(called.Wait(timeout) && called.Wait(timeout), "streaming resumes");
    emitter.Stop();

    var plane = FieldPlane.Horizontal(0.12f, 0.06f, 0.06f);
    PressureMap streamed = EmulatedField.Map(emitter, plane, TimeSpan.FromMilliseconds(2), 30, 30, frames: 4);
    FieldPlots.SavePressureMap(streamed, Path.Combine(folder, "streamed.png"));
    emitter.Dispose();  // releases the device at once
    PressureMap modulated;
    using (var modulating = new AmplitudeModulationEmitter("NET8-ARRAY"))
    {
        Require(modulating.TryUpdate(new[] { new AmplitudeModulationControlPoint(0f, 0f, 0.12f, 1f, 200f) }), "amplitude modulation starts");
        modulated = EmulatedField.Map(modulating, plane, 30, 30);
        FieldPlots.SavePressureMap(modulated, Path.Combine(folder, "modulated.png"));
    }
    Require(Math.Abs(streamed.Peak - modulated.Peak) < 0.01f * modulated.Peak, "a fixed streamed point maps like amplitude modulation");

    // A 2 cm circle 12 cm up for a tenth of a second: its envelope ends it,
    // and every sample it made lies on the circle.
    using var drawing = new TimePointStreamingEmitter("NET8-ARRAY");
    var centre = new Vector3(0f, 0f, 0.12f);
    using (var player = new SensationPlayer(drawing))
    {
        player.Placement = Matrix4x4.CreateTranslation(centre);
        player.Play(new CircleSensation(0.02, drawFrequency: 100,
                                        envelope: IntensityEnvelope.Fade(fadeIn: 0.01, fadeOut: 0.01, duration: 0.1)));
        Require(player.Start(), "the sensation player starts streaming");
        Require(player.WaitForSilence(timeout), "the circle ends by itself");
        player.Stop();
    }
    var circle = EmulatedEmission.Samples(drawing).Where(s => s.Enabled && s.Intensity > 0f).ToArray();
    Require(circle.Length > 0.1 * 40000 * 0.9, $"a tenth of a second of samples at 40 kHz (got {circle.Length})");
    Require(circle.All(s => Math.Abs(Vector3.Distance(s.Position, centre) - 0.02f) < 1e-5f), "the samples lie on the circle");

    Console.WriteLine($"net8.0 consumer on .NET {Environment.Version}: unplugged, replugged and streamed again; " +
                      $"fields peak at {streamed.Peak:0} Pa (streamed) and {modulated.Peak:0} Pa (modulated); " +
                      $"a circle of {circle.Length} samples");
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
