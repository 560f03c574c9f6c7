using System;
using System.Globalization;

namespace Velarion.Demo
{
    // Walks a C# caller through the binding on the emulated device library.
    public static class Program
    {
        public static int Main()
        {
            CultureInfo.CurrentCulture = CultureInfo.InvariantCulture;
            Console.WriteLine("VelarionCSharp demo (emulated device library)");
            Console.WriteLine();
            Vectors();
            AmplitudeModulation();
            return 0;
        }

        private static void Vectors()
        {
            Console.WriteLine("== Vectors ==");
            using var focus = new NVector3(0.02f, 0f, 0.2f);
            using var offset = new NVector3(0f, 0.01f, 0f);
            using var moved = focus.operator_plus(offset);
            using var direction = moved.normalize();
            Console.WriteLine($"focus {Show(focus)} + offset {Show(offset)} = {Show(moved)}");
            Console.WriteLine($"|{Show(moved)}| = {moved.length():0.######} m, direction {Show(direction)}");
            try
            {
                focus.dot(null);
            }
            catch (ArgumentNullException e)
            {
                Console.WriteLine($"a null operand is reported as {e.GetType().Name}: {e.Message}");
            }
            Console.WriteLine();
        }

        // --- Amplitude modulation (a focal point on the first device) ---------

        // The emulator's view of the field, from its control interface.
        [System.Runtime.InteropServices.DllImport("Velarion")]
        private static extern void VelarionEmulator_AmplitudeModulation_setManualStepping(int manual);
        [System.Runtime.InteropServices.DllImport("Velarion")]
        private static extern float VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(float x, float y, float z);

        private static void AmplitudeModulation()
        {
            Console.WriteLine("== Amplitude modulation ==");
            // Hold the envelopes at their peak so the printed field is repeatable.
            VelarionEmulator_AmplitudeModulation_setManualStepping(1);
            using var library = new VelarionLibrary();
            using var identifiers = library.getManagedDeviceIdentifiers();
            Console.WriteLine($"devices: {string.Join(", ", identifiers)}");
            using var placement = new Transform();
            using var emitter = new AmplitudeModulationEmitter(identifiers[0], placement);
            Console.WriteLine($"emitter on {identifiers[0]}: connected {emitter.isConnected()}, " +
                              $"{emitter.getSampleRate()} Hz of {emitter.getSampleRateLimit()} Hz, " +
                              $"up to {emitter.getMaximumControlPointLimit()} points, " +
                              $"speed of sound {emitter.getExtendedOption("speedOfSound")} m/s");
            using var points = new ControlPointCollection();
            using (var point = new AmplitudeModulationControlPoint(0.0f, 0.0f, 0.2f, 1.0f, 200.0f))
            {
                points.add(point);
            }
            Console.WriteLine($"update with {points.length()} point at (0, 0, 0.2) m, 200 Hz: {emitter.update(points)}");
            Console.WriteLine($"pressure at the point: {VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(0f, 0f, 0.2f):0} Pa, " +
                              $"2 cm beside it: {VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(0.02f, 0f, 0.2f):0} Pa");
            Console.WriteLine($"stop: {emitter.stop()}");
            VelarionEmulator_AmplitudeModulation_setManualStepping(0);
            Console.WriteLine();
        }

        private static string Show(NVector3 v) => $"({v.x:0.####}, {v.y:0.####}, {v.z:0.####})";
    }
}
