using System;
using System.Numerics;

namespace Velarion.Sensations
{
    /// <summary>
    /// A Lissajous figure in the sensation's x-y plane:
    /// x = width/2 × sin(2π a f t + phase), y = height/2 × sin(2π b f t), with
    /// whole numbers a and b, so that the figure closes once per cycle of f.
    /// The default (a = 1, b = 2) is a figure of eight.
    /// </summary>
    public sealed class LissajousSensation : Sensation
    {
        /// <summary>The most turns along one axis per cycle.</summary>
        public const int MaximumCycles = 16;

        private readonly double xLead;  // the phase in turns

        /// <summary>A figure <paramref name="width"/> by <paramref name="height"/> around <paramref name="centre"/>.</summary>
        /// <param name="width">Along x, metres, from <see cref="Sensation.MinimumSize"/> to <see cref="Sensation.MaximumSize"/>.</param>
        /// <param name="height">Along y, metres, in the same range.</param>
        /// <param name="xCycles">a: turns along x per cycle, 1 to <see cref="MaximumCycles"/>.</param>
        /// <param name="yCycles">b: turns along y per cycle, 1 to <see cref="MaximumCycles"/>.</param>
        /// <param name="drawFrequency">f: whole figures a second, above 0 and at most <see cref="Sensation.MaximumDrawFrequency"/>.</param>
        /// <param name="phase">The x motion's lead, radians, finite.</param>
        /// <param name="centre">Metres, in the sensation's space.</param>
        /// <param name="envelope">The intensity over time; null: full strength until stopped.</param>
        /// <exception cref="ArgumentOutOfRangeException">an argument outside its range, or the peak speed above <see cref="Sensation.MaximumSpeed"/></exception>
        public LissajousSensation(double width = 0.04, double height = 0.04, int xCycles = 1, int yCycles = 2,
                                  double drawFrequency = 30.0, double phase = 0.0, Vector3 centre = default,
                                  IntensityEnvelope envelope = null)
            : base(envelope)
        {
            Width = CheckSize(width, nameof(width));
            Height = CheckSize(height, nameof(height));
            XCycles = (int)Check.Range(xCycles, 1, MaximumCycles, nameof(xCycles), "whole turns per cycle close the figure");
            YCycles = (int)Check.Range(yCycles, 1, MaximumCycles, nameof(yCycles), "whole turns per cycle close the figure");
            DrawFrequency = CheckFrequency(drawFrequency, nameof(drawFrequency));
            Phase = Check.Range(phase, -1e6, 1e6, nameof(phase), "radians");
            xLead = phase / (2.0 * Math.PI);
            Centre = CheckPoint(centre, nameof(centre));
            CheckSpeed(PeakSpeed, nameof(drawFrequency), drawFrequency);
        }

        /// <summary>Along x, metres.</summary>
        public double Width { get; }

        /// <summary>Along y, metres.</summary>
        public double Height { get; }

        /// <summary>a: turns along x per cycle.</summary>
        public int XCycles { get; }

        /// <summary>b: turns along y per cycle.</summary>
        public int YCycles { get; }

        /// <summary>The x motion's lead, radians.</summary>
        public double Phase { get; }

        /// <summary>The centre, metres, in the sensation's space.</summary>
        public Vector3 Centre { get; }

        /// <summary>Whole figures a second.</summary>
        public override double DrawFrequency { get; }

        /// <summary>An upper bound: both axes at their fastest at once.</summary>
        public override double PeakSpeed
        {
            get
            {
                double x = Math.PI * XCycles * Width * DrawFrequency, y = Math.PI * YCycles * Height * DrawFrequency;
                return Math.Sqrt(x * x + y * y);
            }
        }

        /// <inheritdoc/>
        public override double Extent => Centre.Length() + 0.5 * Math.Sqrt(Width * Width + Height * Height);

        /// <inheritdoc/>
        public override Vector3 PositionAt(double seconds)
        {
            double cycles = DrawFrequency * seconds;
            return Centre + new Vector3((float)(0.5 * Width) * MathF.Sin(Cycles.Angle(XCycles * cycles + xLead)),
                                        (float)(0.5 * Height) * MathF.Sin(Cycles.Angle(YCycles * cycles)), 0f);
        }
    }
}
