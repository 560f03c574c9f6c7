using System;
using Velarion.Emulation;

namespace Velarion.Benchmarks
{
    // The only file that names the binding's public surface: when that surface
    // changes, this is what follows it.

    internal sealed class BoundVectors : IDisposable
    {
        private readonly NVector3 a = new NVector3(1f, 2f, 3f);
        private readonly NVector3 b = new NVector3(0.5f, -1f, 4f);

        public void AddAndDispose()
        {
            using (a + b)
            {
            }
        }

        // Left to the finalizer, as code that never disposes results does.
        public object AddAndDrop() => a + b;

        public void Dispose()
        {
            a.Dispose();
            b.Dispose();
        }
    }

    internal sealed class BoundMatrix : IDisposable
    {
        private readonly Matrix4x4 matrix = Matrix4x4.Identity();
        private readonly NVector3 position = new NVector3(0.1f, 0.2f, 0.3f);

        public float ThroughProxies()
        {
            using NVector3 moved = matrix.TransformPosition(position);
            return moved.X;
        }

        public System.Numerics.Vector3 ThroughNumerics(System.Numerics.Vector3 point) => matrix.TransformPosition(point);

        public void Dispose()
        {
            matrix.Dispose();
            position.Dispose();
        }
    }

    internal sealed class BoundStringList : IDisposable
    {
        private readonly StringList list = new StringList();

        public BoundStringList(string text) => list.Add(text);

        public string Read() => list[0];

        public void Dispose() => list.Dispose();
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
