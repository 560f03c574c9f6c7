using System;
using System.Numerics;
using System.Runtime.InteropServices;
using Velarion.Interop;

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

        /// <summary>
        /// What the device emits now under amplitude modulation: the drive of
        /// each of its elements (empty while it is silent or no emitter drives it).
        /// </summary>
        /// <param name="deviceIdentifier">The device.</param>
        /// <returns>A copy of the current frame, one entry per element, in the device's element order.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="deviceIdentifier"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="deviceIdentifier"/> contains '\0'.</exception>
        public static TransducerDrive[] GetDrive(string deviceIdentifier)
        {
            Arguments.Text(deviceIdentifier, nameof(deviceIdentifier));
            // The frame may change size between the two calls; what was written counts.
            var drive = new TransducerDrive[VelarionEmulator_AmplitudeModulation_drive(deviceIdentifier, null, 0, IntPtr.Zero)];
            uint count = VelarionEmulator_AmplitudeModulation_drive(deviceIdentifier, drive, (uint)drive.Length, IntPtr.Zero);
            if (count < drive.Length) Array.Resize(ref drive, (int)count);
            return drive;
        }

        private const string DeviceLibrary = "Velarion";

        [DllImport(DeviceLibrary)]
        private static extern int VelarionEmulator_AmplitudeModulation_manualStepping();

        [DllImport(DeviceLibrary)]
        private static extern void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual);

        [DllImport(DeviceLibrary)]
        private static extern void VelarionEmulator_AmplitudeModulation_stepAll(uint samples);

        [DllImport(DeviceLibrary)]
        private static extern float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z);

        [DllImport(DeviceLibrary)]
        private static extern uint VelarionEmulator_AmplitudeModulation_drive(
            [MarshalAs(UnmanagedType.LPUTF8Str)] string deviceIdentifier, [Out] TransducerDrive[] drive, uint capacity,
            IntPtr sampleIndex);
    }

    /// <summary>
    /// The drive of one element in an emulated amplitude modulation frame: the
    /// phase and amplitude of its 40 kHz carrier, and where it sits (emitter space).
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct TransducerDrive
    {
        /// <summary>The element's position, metres, emitter space.</summary>
        public readonly Vector3 Position;
        /// <summary>The way the element faces (unit vector), emitter space.</summary>
        public readonly Vector3 Direction;
        /// <summary>The phase in steps of 1/256 of a carrier period (0 to 255).</summary>
        public readonly uint PhaseStep;
        /// <summary>The phase in radians (<see cref="PhaseStep"/> × 2π / 256).</summary>
        public readonly float Phase;
        /// <summary>The amplitude from 0 to 1, the element's multiplier included.</summary>
        public readonly float Amplitude;
    }
}
