using System;
using Numerics = System.Numerics;

namespace Velarion
{
    /// <summary>
    /// One ultrasonic element of an array: its position in the device frame
    /// (metres), the direction it faces and its output multiplier (0 disables
    /// it). Either owned (made with <c>new</c>: dispose it when done) or
    /// borrowed from a <see cref="TransducerContainer"/>: a borrowed element
    /// reads and writes the container's storage and is refused with
    /// <see cref="InvalidOperationException"/> once the container changed or was
    /// disposed.
    /// </summary>
    public partial class Transducer
    {
        /// <summary>The position's x, in metres in the device frame.</summary>
        public float XPosition { get => x_position; set => x_position = value; }

        /// <summary>The position's y, in metres in the device frame.</summary>
        public float YPosition { get => y_position; set => y_position = value; }

        /// <summary>The position's z, in metres in the device frame.</summary>
        public float ZPosition { get => z_position; set => z_position = value; }

        /// <summary>The facing direction's x.</summary>
        public float XUpVector { get => x_upvector; set => x_upvector = value; }

        /// <summary>The facing direction's y.</summary>
        public float YUpVector { get => y_upvector; set => y_upvector = value; }

        /// <summary>The facing direction's z.</summary>
        public float ZUpVector { get => z_upvector; set => z_upvector = value; }

        /// <summary>The output multiplier; 0 (or -0) disables the element.</summary>
        public float Multiplier { get => multiplier; set => multiplier = value; }

        /// <summary>Whether the multiplier is not 0 (NaN counts as enabled, -0 as disabled).</summary>
        public bool IsEnabled => isEnabled();

        /// <summary>The position, in metres in the device frame.</summary>
        public Numerics.Vector3 Position
        {
            get => new Numerics.Vector3(x_position, y_position, z_position);
            set
            {
                x_position = value.X;
                y_position = value.Y;
                z_position = value.Z;
            }
        }

        /// <summary>The direction the element faces.</summary>
        public Numerics.Vector3 UpVector
        {
            get => new Numerics.Vector3(x_upvector, y_upvector, z_upvector);
            set
            {
                x_upvector = value.X;
                y_upvector = value.Y;
                z_upvector = value.Z;
            }
        }

        /// <summary>The element as "position (x, y, z) facing (x, y, z) × multiplier".</summary>
        public override string ToString() =>
            $"position {Text.Tuple(x_position, y_position, z_position)} facing {Text.Tuple(x_upvector, y_upvector, z_upvector)} " +
            $"× {multiplier.ToString(System.Globalization.CultureInfo.InvariantCulture)}";
    }
}
