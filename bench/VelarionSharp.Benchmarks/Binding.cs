using System;
using Velarion.Emulation;

namespace Velarion.Benchmarks
{
    // The only file that names the binding's public surface: when that surface
    // changes, this is what follows it.

    internal static class BoundGeometry
    {
        private static readonly NVector3 A = new NVector3(1f, 2f, 3f);
        private static readonly NVector3 B = new NVector3(0.5f, -1f, 4f);
        private static readonly Matrix4x4 Matrix = Matrix4x4.Identity;

        public static NVector3 Add() => A + B;

        public static System.Numerics.Vector3 Transform(System.Numerics.Vector3 point) => Matrix.TransformPosition(point);
    }

    // A game loop's frame: one focal point moved and sent.
    internal sealed class BoundFocalPoint : IDisposable
    {
        private readonly VelarionLibrary library = new VelarionLibrary();
        private readonly AmplitudeModulationEmitter emitter;
        private readonly AmplitudeModulationControlPoint[] points = { new AmplitudeModulationControlPoint(0f, 0f, 0.2f) };

        public BoundFocalPoint(string device) => emitter = new AmplitudeModulationEmitter(device);

        public static string FirstDevice()
        {
            using var library = new VelarionLibrary();
            return library.DeviceIdentifiers[0];
        }

        public void Frame(float x)
        {
            points[0].Position = new NVector3(x, 0f, 0.2f);
            emitter.Update(points);
        }

        public void Dispose()
        {
            emitter.Dispose();
            library.Dispose();
        }
    }

    internal sealed class BoundStreaming : IDisposable
    {
        private readonly SteppedStreaming streaming = new SteppedStreaming();
        private readonly EditingCallback callback = new EditingCallback();

        public BoundStreaming() => streaming.Emitter.SetEmissionCallback(callback);

        public void Step(long firstTime, long spacing, uint timePoints, uint controlPoints) =>
            streaming.Step(firstTime, spacing, timePoints, controlPoints);

        public float LastIntensity(uint timePoint, uint controlPoint) =>
            streaming.Delivered(timePoint, controlPoint).Intensity;

        public void Dispose()
        {
            streaming.Emitter.SetEmissionCallback(null);
            streaming.Dispose();
            callback.Dispose();
        }

        private sealed class EditingCallback : EmissionCallback
        {
            protected override void OnEmission(EmissionInterval interval)
            {
                for (int k = 0; k < interval.TimePointCount; k++)
                {
                    var row = interval.Row(k);
                    for (int j = 0; j < row.Length; j++)
                    {
                        ref var record = ref row[j];
                        record.Position.Z = Edit.Height(k);
                        record.Intensity = Edit.Intensity;
                        record.Modified = true;
                    }
                }
            }
        }
    }
}
