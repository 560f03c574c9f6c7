using System;
using System.Numerics;
using System.Runtime.InteropServices;

namespace Velarion.Emulation
{
    /// <summary>
    /// Control of the emulated amplitude modulation emitters: manual stepping
    /// (no emission threads; the envelope moves only when stepped) and the
    /// pressure at a point. Needs the emulator as the device library.
    /// </summary>
    public static class EmulatedAmplitudeModulation
    {
        /// <summary>
        /// While true, emitters run no emission thread: <c>update</c> renders
        /// the current envelope sample at once and <see cref="Step"/> moves it
        /// on. Turning it off starts the threads of emitters that are emitting.
        /// </summary>
        public static bool ManualStepping
        {
            get => VelarionEmulator_AmplitudeModulation_manualStepping() != 0;
            set => VelarionEmulator_AmplitudeModulation_setManualStepping(value ? 1 : 0);
        }

        /// <summary>Advances every emitter's envelope by whole samples and renders the new frame.</summary>
        public static void Step(uint samples) => VelarionEmulator_AmplitudeModulation_stepAll(samples);

        /// <summary>
        /// Amplitude of the 40 kHz carrier at <paramref name="point"/> (pascals;
        /// the RMS is this over √2) from every emitting array, all placed in one space.
        /// </summary>
        public static float PressureAmplitudeAt(Vector3 point) =>
            VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(point.X, point.Y, point.Z);

        private const string DeviceLibrary = "Velarion";

        [DllImport(DeviceLibrary)]
        private static extern int VelarionEmulator_AmplitudeModulation_manualStepping();

        [DllImport(DeviceLibrary)]
        private static extern void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual);

        [DllImport(DeviceLibrary)]
        private static extern void VelarionEmulator_AmplitudeModulation_stepAll(uint samples);

        [DllImport(DeviceLibrary)]
        private static extern float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z);
    }
}
