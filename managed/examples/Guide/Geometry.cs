using System;
using Numerics = System.Numerics;
using Velarion;

namespace Velarion.Guide
{
    public static class Geometry
    {
        public static void WithNumerics()
        {
            #region guide: geometry
            var axis = new NVector3(0, 0, 1);                              // values: nothing to dispose
            var quarter = Matrix4x4.CreateRotation(axis, Math.PI / 2);     // column vectors: M · p
            Numerics.Vector3 y = quarter.TransformPosition(Numerics.Vector3.UnitX); // (0, 1, 0)

            Numerics.Matrix4x4 m = quarter.ToNumerics();                   // ≈ Matrix4x4.CreateRotationZ(π/2)
            var placement = Transform.FromRotation(
                Numerics.Quaternion.CreateFromAxisAngle(Numerics.Vector3.UnitY, 0.3f),
                new Numerics.Vector3(0, 0, 0.05f));                        // a device 5 cm up, turned about y
            NVector3 moved = axis + axis;                                  // computed by the device library
            Console.WriteLine($"{y:0.###} {moved} {placement.Origin}");
            #endregion
        }
    }
}
