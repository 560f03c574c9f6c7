using System;
using System.Linq;
using System.Numerics;
using Velarion;
using Velarion.Emulation;
using Velarion.Sensations;
using Matrix4x4 = System.Numerics.Matrix4x4;  // Velarion has one too

// A 2 cm circle 15 cm above the array for a tenth of a second, played by the
// packaged sensations through the packaged binding on the packaged emulator,
// then checked sample by sample: the player renders every sample on the
// emulator's emission thread, under Mono as under Unity's editor.
internal static class Program
{
    private static int Main()
    {
        var centre = new Vector3(0f, 0f, 0.15f);
        const double radius = 0.02, duration = 0.1;
        EmittedSample[] samples;
        using (var library = new VelarionLibrary())
        using (var emitter = new TimePointStreamingEmitter(library.DeviceIdentifiers[0]))
        {
            using (var player = new SensationPlayer(emitter))
            {
                player.Placement = Matrix4x4.CreateTranslation(centre);
                player.Play(new CircleSensation(radius, drawFrequency: 100,
                                                envelope: IntensityEnvelope.Fade(fadeIn: 0.01, fadeOut: 0.01, duration)));
                if (!player.Start()) return Fail("the emitter did not start");
                // The envelope's duration ends the circle by itself.
                if (!player.WaitForSilence(TimeSpan.FromSeconds(10))) return Fail("the circle did not end");
                if (!player.Stop()) return Fail("the player did not stop the emitter it started");
            }
            samples = EmulatedEmission.Samples(emitter);
        }

        var felt = samples.Where(s => s.Enabled && s.Intensity > 0f).ToArray();
        // At 40 kHz; the fades' quietest samples aside.
        if (felt.Length < duration * 40000 * 0.9) return Fail($"{felt.Length} samples emitted");
        double worst = felt.Max(s => Math.Abs(Vector3.Distance(s.Position, centre) - radius));
        if (worst > 1e-5) return Fail($"a sample {worst * 1000:0.000} mm off the circle");
        Console.WriteLine($"packaged circle under Mono: {felt.Length} samples on the circle, " +
                          $"at most {worst * 1e6:0.00} µm off, peak intensity {felt.Max(s => s.Intensity):0.00}");
        return 0;
    }

    private static int Fail(string what)
    {
        Console.Error.WriteLine($"packaged circle: {what}");
        return 1;
    }
}
