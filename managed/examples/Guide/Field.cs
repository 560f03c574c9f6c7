using System;
using System.IO;
using System.Numerics;
using Velarion;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;

namespace Velarion.Guide
{
    public static class Field
    {
        public static void Draw(string folder)
        {
            #region guide: draw-field
            using var library = new VelarionLibrary();
            using var emitter = new AmplitudeModulationEmitter(library.DeviceIdentifiers[0]);
            emitter.Update(new AmplitudeModulationControlPoint(0.02f, 0f, 0.15f, intensity: 1f, frequency: 200f));

            // RMS pressure (Pa) on a vertical slice through the point, 200 x 200 values.
            var slice = FieldPlane.Vertical(new Vector3(0.02f, 0f, 0.15f), width: 0.2f, bottom: 0f, top: 0.3f);
            PressureMap map = EmulatedField.Map(emitter, slice);
            Console.WriteLine($"peak {map.Peak:0} Pa ({PressureMap.SoundPressureLevel(map.Peak):0} dB SPL) at {map.PeakPosition * 1000:0.0} mm");
            FieldPlots.SavePressureMap(map, Path.Combine(folder, "guide-field.png"));
            emitter.Stop();
            #endregion
        }
    }
}
