using System;
using System.Numerics;
using System.Threading;
using Velarion;

namespace Velarion.Guide
{
    public static class FocalPoint
    {
        public static void Play()
        {
            #region guide: focal-point
            using var library = new VelarionLibrary();
            // Placed at the identity: the array's own space, x and y across it, z up.
            using var emitter = new AmplitudeModulationEmitter(library.DeviceIdentifiers[0]);
            // 20 cm above the array's centre, full strength, modulated at 200 Hz.
            var points = new AmplitudeModulationControlPoint[1];
            points[0] = new AmplitudeModulationControlPoint(0f, 0f, 0.2f, intensity: 1f, frequency: 200f);
            emitter.Update(points);  // copied: the array keeps emitting these points
            // A game loop moves the point and sends it again; nothing is allocated.
            for (int frame = 0; frame < 30; ++frame)
            {
                points[0].Position = new Vector3(0.01f * MathF.Sin(frame / 5f), 0f, 0.2f);
                emitter.Update(points);
                Thread.Sleep(16);
            }
            emitter.Stop();
            #endregion
        }
    }
}
