using System;
using Numerics = System.Numerics;

namespace Velarion.Guide
{
    public static class Geometry
    {
        public static void WithNumerics()
        {
            #region guide: geometry
            using var axis = new NVector3(0, 0, 1);
            using var quarter = Matrix4x4.Rotate(axis, Math.PI / 2);       // column vectors: M · p
            Numerics.Vector3 y = quarter.TransformPosition(Numerics.Vector3.UnitX); // (0, 1, 0), nothing to dispose

            Numerics.Matrix4x4 m = quarter.ToNumerics();                   // ≈ Matrix4x4.CreateRotationZ(π/2)
            using var placement = Transform.FromRotation(
                Numerics.Quaternion.CreateFromAxisAngle(Numerics.Vector3.UnitY, 0.3f),
                new Numerics.Vector3(0, 0, 0.05f));                        // a device 5 cm up, turned about y
            using var moved = axis + axis;                                 // operators over the native ones
            Console.WriteLine($"{y:0.###} {moved} {placement}");
            #endregion
        }
    }
}
