using System;
using System.Diagnostics;
using System.IO;
using System.Numerics;
using System.Threading;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Velarion.Sensations;

namespace Velarion.Guide
{
    using Matrix4x4 = System.Numerics.Matrix4x4;

    public static class Palm
    {
        // The one place the guide's sensations make their emitter.
        private static TimePointStreamingEmitter StreamingEmitter(VelarionLibrary library)
        {
            return new TimePointStreamingEmitter(library.DeviceIdentifiers[0]);  // the array's own space
        }

        public static void Circle(string folder)
        {
            using var library = new VelarionLibrary();
            using var emitter = StreamingEmitter(library);
            #region guide: circle-on-palm
            // Where a hand tracker sees the palm: 20 cm above the array, swaying 3 cm.
            static Matrix4x4 Hand(double seconds) =>
                Matrix4x4.CreateTranslation(0.03f * MathF.Sin((float)(Math.PI * seconds)), 0f, 0.2f);

            using var player = new SensationPlayer(emitter);  // it owns the emission callback
            player.Placement = Hand(0);
            // A 2 cm circle, 100 turns a second (12.6 m/s), fading in over 0.2 s.
            player.Play(new CircleSensation(radius: 0.02, drawFrequency: 100,
                                            envelope: IntensityEnvelope.Fade(fadeIn: 0.2, fadeOut: 0.1)));
            player.Start();
            Thread.Sleep(250);  // faded in
            // What the palm feels: the field on its plane, averaged over the last turn (10 ms).
            var palm = FieldPlane.Horizontal(0.2f, width: 0.1f, depth: 0.1f);
            PressureMap felt = EmulatedField.Map(emitter, palm, TimeSpan.FromMilliseconds(10), 60, 60, frames: 16);
            FieldPlots.SavePressureMap(felt, Path.Combine(folder, "guide-palm-field.png"));

            // The hand sways for a second; the circle follows it.
            for (var clock = Stopwatch.StartNew(); clock.Elapsed.TotalSeconds < 1;)
            {
                player.Placement = Hand(clock.Elapsed.TotalSeconds);  // every frame, from any thread
                Thread.Sleep(11);                                      // about 90 frames a second
            }

            // Replace it: the focal point slides onto the line, it does not jump.
            player.Play(new LineSensation(new Vector3(-0.02f, 0, 0), new Vector3(0.02f, 0, 0)));
            Thread.Sleep(200);
            player.Stop();  // fades out, then stops the emitter

            // What was emitted, seen from above: the newest 0.4 s of samples.
            FieldPlots.SaveEmittedPath(EmulatedField.Path(emitter), Path.Combine(folder, "guide-palm-path.png"),
                                       maximumSamples: 16000);
            #endregion
        }
    }
}
