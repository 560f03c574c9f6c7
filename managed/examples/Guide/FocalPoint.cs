using System.Threading;

namespace Velarion.Guide
{
    public static class FocalPoint
    {
        public static void Play()
        {
            #region guide: focal-point
            using var library = new VelarionLibrary();
            using var placement = new Transform();   // the array's own space: x, y across it, z up
            using var emitter = new AmplitudeModulationEmitter(library.DeviceIdentifiers[0], placement);
            // 20 cm above the array's centre, full strength, modulated at 200 Hz.
            using var points = new ControlPointCollection();
            using (var point = new AmplitudeModulationControlPoint(0f, 0f, 0.2f, 1f, 200f))
            {
                points.Add(point);  // the collection keeps a copy
            }
            emitter.Update(points);  // the array keeps emitting these points
            Thread.Sleep(500);
            emitter.Stop();
            #endregion
        }
    }
}
