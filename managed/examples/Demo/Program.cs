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

        private static string Show(NVector3 v) => $"({v.x:0.####}, {v.y:0.####}, {v.z:0.####})";
    }
}
