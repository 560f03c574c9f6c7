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
using static DeviceRoundTrip;
using Matrix4x4 = System.Numerics.Matrix4x4;  // Velarion has one too

// A net8.0 app on every package, as the package proof builds it: the log
// routed into an ILogger, a virtual device that comes and goes
// (DeviceRoundTrip.cs), both kinds of field plotted, and a circle played by
// the sensation player.
var timeout = TimeSpan.FromSeconds(10);
var folder = Directory.CreateDirectory(Path.Combine(Path.GetTempPath(), $"velarion-net8-{Environment.ProcessId}")).FullName;
try
{
    using var library = new VelarionLibrary();
    var warnings = new BlockingCollection<string>();
    using var route = library.RouteLogTo(new Collector(warnings));

    var (streamed, modulated) = DeviceRoundTrip.Run(library, warnings, "NET8-ARRAY", timeout);
    FieldPlots.SavePressureMap(streamed, Path.Combine(folder, "streamed.png"));
    FieldPlots.SavePressureMap(modulated, Path.Combine(folder, "modulated.png"));

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
