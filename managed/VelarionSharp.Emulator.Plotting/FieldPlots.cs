using System;
using System.Collections.Generic;
using System.Globalization;
using System.Linq;
using System.Numerics;
using ScottPlot;

namespace Velarion.Emulation.Plotting
{
    /// <summary>
    /// Pictures of what the emulated arrays emit, drawn with ScottPlot: a
    /// pressure map as a heat map with a colour bar, and a streamed path seen
    /// from above. Axes are in millimetres. The <c>…Plot</c> methods return the
    /// plot to adjust further; the <c>Save…</c> methods write a PNG.
    /// </summary>
    public static class FieldPlots
    {
        // Colours that the heat map's colour scale does not use.
        private static readonly Color OutlineColour = Color.FromHex("#FF00FF");
        private static readonly Color FocusColour = Colors.Black;
        private static readonly Color ArrayFill = Color.FromHex("#D9D9D9");
        private static readonly Color PathColour = Color.FromHex("#C0392B");

        /// <summary>
        /// A heat map of <paramref name="map"/>: RMS pressure in pascals with a
        /// colour bar, the arrays' outlines where they cut or lie in the plane,
        /// the focal points that lie in it, and a title naming the arrays, the
        /// plane, the peak (also in dB SPL) and the moment: an amplitude
        /// modulation frame, or a streaming emitter's time average.
        /// </summary>
        public static Plot PressureMapPlot(PressureMap map)
        {
            if (map == null) throw new ArgumentNullException(nameof(map));
            FieldPlane plane = map.Plane;
            var plot = new Plot();

            // Row 0 of the map is at the bottom; a heat map's first row is its top.
            var intensities = new double[map.Rows, map.Columns];
            for (int r = 0; r < map.Rows; ++r)
            {
                for (int c = 0; c < map.Columns; ++c) intensities[map.Rows - 1 - r, c] = map[r, c];
            }
            var heatmap = plot.Add.Heatmap(intensities);
            heatmap.Colormap = new ScottPlot.Colormaps.Turbo();
            double halfColumn = map.ColumnSpacing * 500.0, halfRow = map.RowSpacing * 500.0;
            heatmap.Extent = new CoordinateRect(plane.Left * 1000.0 - halfColumn, plane.Right * 1000.0 + halfColumn,
                                                plane.Bottom * 1000.0 - halfRow, plane.Top * 1000.0 + halfRow);
            var colourBar = plot.Add.ColorBar(heatmap);
            colourBar.Label = "RMS pressure of the 40 kHz carrier (Pa)";

            double thickness = Math.Max(map.ColumnSpacing, map.RowSpacing);
            foreach (EmulatedArray array in map.Devices) DrawArray(plot, plane, array, thickness, filled: false);

            bool focusLabelled = false;
            foreach (FocalPoint point in map.FocalPoints)
            {
                Vector3 p = plane.Project(point.Position);
                // Only points in the plane belong on it: within a cell of it.
                if (Math.Abs(p.Z) > thickness + 1e-4) continue;
                var marker = plot.Add.Marker(p.X * 1000.0, p.Y * 1000.0, MarkerShape.OpenCircle, 14, FocusColour);
                marker.MarkerStyle.LineWidth = 2;
                if (!focusLabelled)
                {
                    marker.LegendText = "focal point";
                    focusLabelled = true;
                }
            }

            string devices = map.Devices.Count == 0 ? "emulated array" : string.Join(" + ", map.Devices.Select(d => d.Identifier));
            plot.Title($"{devices}: pressure on the {plane.Name}\n" +
                       $"peak {map.Peak.ToString("0", CultureInfo.InvariantCulture)} Pa RMS " +
                       $"({PressureMap.SoundPressureLevel(map.Peak).ToString("0", CultureInfo.InvariantCulture)} dB SPL) " +
                       $"at {Millimetres(map.PeakPosition)} mm" +
                       MomentText(map));
            plot.XLabel($"{plane.HorizontalAxisName} (mm)");
            plot.YLabel($"{plane.VerticalAxisName} (mm)");
            // The array's face may lie on the map's edge: leave room to see it.
            double margin = 8.0;
            plot.Axes.SetLimits(plane.Left * 1000.0 - halfColumn - margin, plane.Right * 1000.0 + halfColumn + margin,
                                plane.Bottom * 1000.0 - halfRow - margin, plane.Top * 1000.0 + halfRow + margin);
            plot.Axes.SquareUnits();
            plot.ShowLegend(Edge.Bottom);  // below the axes: a legend inside would hide part of the map
            return plot;
        }

        /// <summary>Writes <see cref="PressureMapPlot"/> as a PNG.</summary>
        public static void SavePressureMap(PressureMap map, string file, int width = 900, int height = 760)
        {
            if (file == null) throw new ArgumentNullException(nameof(file));
            CheckSize(width, height);
            PressureMapPlot(map).SavePng(file, width, height);
        }

        /// <summary>
        /// The emitted path seen from above (x and y in millimetres): the newest
        /// <paramref name="maximumSamples"/> recorded samples of every control
        /// point, the arrays' outlines, a legend, and a title saying how many
        /// samples are drawn out of how many were recorded and over what time.
        /// </summary>
        public static Plot EmittedPathPlot(EmittedPath path, int maximumSamples = 800)
        {
            if (path == null) throw new ArgumentNullException(nameof(path));
            if (maximumSamples < 1) throw new ArgumentOutOfRangeException(nameof(maximumSamples), maximumSamples, "draw at least one sample");
            var plot = new Plot();
            FieldPlane top = FieldPlane.Horizontal(0f, 1f, 1f);

            foreach (EmulatedArray array in path.Devices) DrawArray(plot, top, array, double.PositiveInfinity, filled: true);

            int first = Math.Max(0, path.Samples.Count - maximumSamples);
            var drawn = new List<EmittedSample>();
            for (int i = first; i < path.Samples.Count; ++i) drawn.Add(path.Samples[i]);
            var palette = new ScottPlot.Palettes.Category10();
            int series = 0;
            foreach (var group in drawn.Where(s => s.Enabled).GroupBy(s => s.Index).OrderBy(g => g.Key))
            {
                double[] xs = group.Select(s => s.Position.X * 1000.0).ToArray();
                double[] ys = group.Select(s => s.Position.Y * 1000.0).ToArray();
                var line = plot.Add.ScatterLine(xs, ys, series == 0 ? PathColour : palette.GetColor(series));
                line.LineWidth = 2;
                line.LegendText = group.Key == 0 && drawn.All(s => s.Index == 0)
                                      ? "emitted path"
                                      : $"control point {group.Key}";
                // The last first: on a closed path the two meet, and both stay visible.
                var end = plot.Add.Marker(xs[xs.Length - 1], ys[ys.Length - 1], MarkerShape.OpenSquare, 16, Colors.Black);
                end.MarkerStyle.LineWidth = 2;
                var start = plot.Add.Marker(xs[0], ys[0], MarkerShape.FilledCircle, 8, line.Color);
                if (series == 0)
                {
                    start.LegendText = "first sample drawn";
                    end.LegendText = "last sample drawn";
                }
                ++series;
            }

            TimeSpan span = drawn.Count > 1
                ? TimeSpan.FromTicks((drawn[drawn.Count - 1].TimeNanoseconds - drawn[0].TimeNanoseconds) / 100)
                : TimeSpan.Zero;
            string devices = path.Devices.Count == 0 ? "emulated array" : string.Join(" + ", path.Devices.Select(d => d.Identifier));
            string heights = Heights(drawn);
            plot.Title($"{devices}: emitted path seen from above{heights}\n" +
                       $"{drawn.Count.ToString("N0", CultureInfo.InvariantCulture)} of " +
                       $"{path.Samples.Count.ToString("N0", CultureInfo.InvariantCulture)} recorded samples drawn " +
                       $"(the last {span.TotalMilliseconds.ToString("0.#", CultureInfo.InvariantCulture)} ms)");
            plot.XLabel("x (mm)");
            plot.YLabel("y (mm)");
            plot.Axes.SquareUnits();
            plot.ShowLegend(Edge.Bottom);
            return plot;
        }

        /// <summary>Writes <see cref="EmittedPathPlot"/> as a PNG.</summary>
        public static void SaveEmittedPath(EmittedPath path, string file, int maximumSamples = 800, int width = 800,
                                           int height = 800)
        {
            if (file == null) throw new ArgumentNullException(nameof(file));
            CheckSize(width, height);
            EmittedPathPlot(path, maximumSamples).SavePng(file, width, height);
        }

        // An array that the plane cuts is drawn as the strip where its face
        // crosses the plane, 6 mm thick on the side it faces away from: the
        // array seen from the side. Any other is drawn as its outline seen
        // along the plane's normal (filled for a top view), with its distance.
        private static void DrawArray(Plot plot, FieldPlane plane, EmulatedArray array, double thickness, bool filled)
        {
            Vector3[] corners = array.Outline.Select(plane.Project).ToArray();
            float nearest = corners.Min(c => c.Z), farthest = corners.Max(c => c.Z);
            string size = $"{Mm(Vector3.Distance(array.Outline[0], array.Outline[1]))} × " +
                          $"{Mm(Vector3.Distance(array.Outline[1], array.Outline[2]))} mm";
            bool inPlane = Math.Max(Math.Abs(nearest), Math.Abs(farthest)) <= thickness + 1e-4;
            if (inPlane || nearest > 0f || farthest < 0f || farthest - nearest < 1e-4f)
            {
                Coordinates[] outline = corners.Select(c => new Coordinates(c.X * 1000.0, c.Y * 1000.0)).ToArray();
                var polygon = plot.Add.Polygon(outline);
                polygon.FillStyle.Color = filled ? ArrayFill : Colors.Transparent;
                polygon.LineStyle.Color = filled ? Colors.Gray : OutlineColour;
                polygon.LineStyle.Width = 2;
                polygon.LineStyle.Pattern = filled ? LinePattern.Solid : LinePattern.Dashed;
                float centre = plane.Project(array.Centre).Z;
                // The axes' cross product points at the viewer: up out of a
                // horizontal plane, out of the picture for a vertical one.
                string side = Vector3.Cross(plane.HorizontalAxis, plane.VerticalAxis).Z > 0.5f
                    ? (centre < 0 ? "below" : "above")
                    : (centre < 0 ? "behind" : "in front of");
                string where = inPlane ? "" : $", {Mm(Math.Abs(centre))} mm {side} the plane";
                polygon.LegendText = $"array {array.Identifier} ({size}{where})";
                return;
            }
            // Where the edges cross the plane.
            var crossings = new List<Vector3>();
            for (int i = 0; i < 4; ++i)
            {
                Vector3 a = corners[i], b = corners[(i + 1) % 4];
                if ((a.Z <= 0f && b.Z >= 0f) || (a.Z >= 0f && b.Z <= 0f))
                {
                    float t = a.Z == b.Z ? 0f : a.Z / (a.Z - b.Z);
                    crossings.Add(a + t * (b - a));
                }
            }
            if (crossings.Count < 2) return;
            Vector3 from = crossings[0], to = crossings[crossings.Count - 1];
            // The face's normal within the plane points into the field; the
            // strip lies behind the face.
            Vector3 normal = plane.Project(plane.Origin + array.Normal);
            var back = new Vector2(-normal.X, -normal.Y);
            back = back.LengthSquared() > 1e-12f ? Vector2.Normalize(back) * 0.006f : Vector2.Zero;
            Coordinates At(Vector3 p, Vector2 shift) => new Coordinates((p.X + shift.X) * 1000.0, (p.Y + shift.Y) * 1000.0);
            var strip = plot.Add.Polygon(new[] { At(from, Vector2.Zero), At(to, Vector2.Zero), At(to, back), At(from, back) });
            strip.FillStyle.Color = ArrayFill;
            strip.LineStyle.Color = OutlineColour;
            strip.LineStyle.Width = 2;
            strip.LegendText = $"array {array.Identifier} ({size}), seen from the side";
        }

        private static string MomentText(PressureMap map)
        {
            switch (map.Moment)
            {
                case FieldMoment.EnvelopePeak:
                    return ", modulation at its peak";
                case FieldMoment.TimeAverage:
                    return $", streamed, averaged over {map.Window.TotalMilliseconds.ToString("0.#", CultureInfo.InvariantCulture)} ms";
                default:
                    return ", as emitted now";
            }
        }

        private static string Heights(List<EmittedSample> drawn)
        {
            if (drawn.Count == 0) return "";
            float low = drawn.Min(s => s.Position.Z), high = drawn.Max(s => s.Position.Z);
            return high - low < 0.0005f
                ? $", z = {Mm(low)} mm"
                : $", z = {Mm(low)} to {Mm(high)} mm";
        }

        private static string Mm(float metres)
        {
            double millimetres = Math.Round(metres * 1000.0, 1);
            return (millimetres == 0.0 ? 0.0 : millimetres).ToString("0.#", CultureInfo.InvariantCulture);  // no "-0"
        }

        private static string Millimetres(Vector3 v) =>
            $"({Mm(v.X)}, {Mm(v.Y)}, {Mm(v.Z)})";

        private static void CheckSize(int width, int height)
        {
            if (width < 100 || width > 10000) throw new ArgumentOutOfRangeException(nameof(width), width, "between 100 and 10000 pixels");
            if (height < 100 || height > 10000) throw new ArgumentOutOfRangeException(nameof(height), height, "between 100 and 10000 pixels");
        }
    }
}
