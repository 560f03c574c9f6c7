using System;
using System.Globalization;
using System.Numerics;

namespace Velarion.Emulation
{
    /// <summary>
    /// A rectangle in the emitter's space on which <see cref="O:Velarion.Emulation.EmulatedField.Map"/>
    /// samples the pressure: a horizontal plane at a height, or a vertical slice.
    /// Positions on it are given by two coordinates in metres along
    /// <see cref="HorizontalAxis"/> and <see cref="VerticalAxis"/>, measured from
    /// <see cref="Origin"/>.
    /// </summary>
    public sealed class FieldPlane
    {
        private FieldPlane(string name, Vector3 origin, Vector3 horizontalAxis, string horizontalName,
                           Vector3 verticalAxis, string verticalName, float left, float right, float bottom, float top)
        {
            Name = name;
            Origin = origin;
            HorizontalAxis = horizontalAxis;
            HorizontalAxisName = horizontalName;
            VerticalAxis = verticalAxis;
            VerticalAxisName = verticalName;
            Left = left;
            Right = right;
            Bottom = bottom;
            Top = top;
        }

        /// <summary>
        /// The plane z = <paramref name="height"/>, <paramref name="width"/> along x
        /// and <paramref name="depth"/> along y, centred on (<paramref name="centreX"/>,
        /// <paramref name="centreY"/>). Its coordinates are x and y themselves.
        /// </summary>
        public static FieldPlane Horizontal(float height, float width, float depth, float centreX = 0f, float centreY = 0f)
        {
            Check(height, nameof(height));
            CheckSize(width, nameof(width));
            CheckSize(depth, nameof(depth));
            Check(centreX, nameof(centreX));
            Check(centreY, nameof(centreY));
            return new FieldPlane($"horizontal plane z = {Millimetres(height)} mm", new Vector3(0f, 0f, height),
                                  Vector3.UnitX, "x", Vector3.UnitY, "y", centreX - width / 2, centreX + width / 2,
                                  centreY - depth / 2, centreY + depth / 2);
        }

        /// <summary>
        /// The vertical slice through <paramref name="through"/> that runs
        /// <paramref name="angleDegrees"/> from the x axis towards y (0: the x–z
        /// plane, 90: the y–z plane), <paramref name="width"/> wide centred on the
        /// point and reaching from height <paramref name="bottom"/> to
        /// <paramref name="top"/>. Along x or y its horizontal coordinate is x or y
        /// itself, its vertical coordinate is z.
        /// </summary>
        public static FieldPlane Vertical(Vector3 through, float width, float bottom, float top, float angleDegrees = 0f)
        {
            Check(through.X, nameof(through));
            Check(through.Y, nameof(through));
            Check(through.Z, nameof(through));
            CheckSize(width, nameof(width));
            Check(bottom, nameof(bottom));
            Check(top, nameof(top));
            Check(angleDegrees, nameof(angleDegrees));
            if (!(top > bottom)) throw new ArgumentException("the top must lie above the bottom", nameof(top));

            double angle = angleDegrees * Math.PI / 180.0;
            var along = new Vector3((float)Math.Cos(angle), (float)Math.Sin(angle), 0f);
            string axis, name;
            double normalised = ((angleDegrees % 180.0) + 180.0) % 180.0;
            var flat = new Vector3(through.X, through.Y, 0f);
            if (normalised == 0.0)
            {
                along = Vector3.UnitX;
                axis = "x";
                name = $"vertical plane y = {Millimetres(through.Y)} mm";
            }
            else if (normalised == 90.0)
            {
                along = Vector3.UnitY;
                axis = "y";
                name = $"vertical plane x = {Millimetres(through.X)} mm";
            }
            else
            {
                axis = $"along {angleDegrees.ToString("0.#", CultureInfo.InvariantCulture)}° from x";
                name = $"vertical plane through x = {Millimetres(through.X)} mm, y = {Millimetres(through.Y)} mm, " +
                       $"{angleDegrees.ToString("0.#", CultureInfo.InvariantCulture)}° from x";
            }
            // Measured from the point of the line nearest the z axis, so that
            // along x (or y) the coordinate is x (or y) itself.
            float offset = Vector3.Dot(flat, along);
            Vector3 origin = flat - offset * along;
            return new FieldPlane(name, origin, along, axis, Vector3.UnitZ, "z", offset - width / 2, offset + width / 2,
                                  bottom, top);
        }

        /// <summary>What the plane is, for titles: for example "vertical plane y = 0 mm".</summary>
        public string Name { get; }

        /// <summary>The point of coordinates (0, 0), emitter space, metres.</summary>
        public Vector3 Origin { get; }

        /// <summary>Unit vector of the horizontal coordinate.</summary>
        public Vector3 HorizontalAxis { get; }

        /// <summary>Unit vector of the vertical coordinate.</summary>
        public Vector3 VerticalAxis { get; }

        /// <summary>"x", "y", "z", or a description of the direction.</summary>
        public string HorizontalAxisName { get; }

        /// <summary>"z" for a vertical slice, "y" for a horizontal plane.</summary>
        public string VerticalAxisName { get; }

        /// <summary>The rectangle's low horizontal coordinate, metres.</summary>
        public float Left { get; }

        /// <summary>The rectangle's high horizontal coordinate, metres.</summary>
        public float Right { get; }

        /// <summary>The rectangle's low vertical coordinate, metres.</summary>
        public float Bottom { get; }

        /// <summary>The rectangle's high vertical coordinate, metres.</summary>
        public float Top { get; }

        /// <summary>The point of the plane at the given coordinates, emitter space.</summary>
        public Vector3 PointAt(float horizontal, float vertical) =>
            Origin + horizontal * HorizontalAxis + vertical * VerticalAxis;

        /// <summary>
        /// The plane coordinates of <paramref name="point"/> projected onto the
        /// plane (X horizontal, Y vertical), and its distance from the plane in
        /// metres (Z, positive on the side the axes' cross product points to).
        /// </summary>
        public Vector3 Project(Vector3 point)
        {
            Vector3 d = point - Origin;
            return new Vector3(Vector3.Dot(d, HorizontalAxis), Vector3.Dot(d, VerticalAxis),
                               Vector3.Dot(d, Vector3.Cross(HorizontalAxis, VerticalAxis)));
        }

        /// <summary>The <see cref="Name"/>.</summary>
        public override string ToString() => Name;

        internal static string Millimetres(float metres)
        {
            double millimetres = Math.Round(metres * 1000.0, 1);
            return (millimetres == 0.0 ? 0.0 : millimetres).ToString("0.#", CultureInfo.InvariantCulture);  // no "-0"
        }

        private static void Check(float value, string name)
        {
            if (!float.IsFinite(value)) throw new ArgumentOutOfRangeException(name, value, "must be a finite number of metres");
        }

        private static void CheckSize(float value, string name)
        {
            if (!float.IsFinite(value) || value <= 0f)
            {
                throw new ArgumentOutOfRangeException(name, value, "must be a positive number of metres");
            }
        }
    }
}
