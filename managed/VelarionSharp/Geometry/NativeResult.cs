using System;
using Numerics = System.Numerics;

namespace Velarion
{
    // Geometry operations that go straight to System.Numerics values: the
    // native operands and results live only for the call.
    internal static class NativeResult
    {
        internal static Numerics.Vector3 Vector<T>(T self, Numerics.Vector3 input, Func<T, NVector3, NVector3> operation)
        {
            using (NVector3 operand = NVector3.FromNumerics(input))
            using (NVector3 result = operation(self, operand))
            {
                return result.ToNumerics();
            }
        }
    }
}
