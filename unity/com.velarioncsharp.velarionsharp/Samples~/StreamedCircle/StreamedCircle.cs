using System;
using UnityEngine;
using Velarion;
using Transform = UnityEngine.Transform;  // Velarion has a Transform too

// A circle streamed around a scene object, sample by sample (time-point
// streaming). Set it up as the focal point sample: this object stands for the
// array, Target is the object to circle.
public sealed class StreamedCircle : MonoBehaviour
{
    [SerializeField] private Transform target;
    [SerializeField] private float radius = 0.02f;         // metres
    [SerializeField] private float turnsPerSecond = 100f;

    private VelarionLibrary library;
    private TimePointStreamingEmitter emitter;
    private readonly Circle circle = new Circle();

    // Runs on the device library's emission thread about every 2 ms: it
    // allocates nothing, blocks on nothing and calls no Unity API.
    private sealed class Circle : EmissionCallback
    {
        // Written by Update on Unity's main thread. A centre read half old,
        // half new for one interval moves the point by less than a frame would.
        internal volatile float X, Y, Z, Radius, TurnsPerSecond;

        protected override void OnEmission(EmissionInterval interval)
        {
            float x = X, y = Y, z = Z, r = Radius;
            double turns = TurnsPerSecond;
            for (int k = 0; k < interval.TimePointCount; ++k)
            {
                // Not TimePoints[k]: Unity's Mono may not index a ReadOnlySpan.
                double seconds = interval.GetTimePoint(k).Nanoseconds / 1e9;
                double angle = 2 * Math.PI * (turns * seconds % 1.0);
                ref var point = ref interval[k, 0];
                point.Position = new System.Numerics.Vector3(x + r * (float)Math.Cos(angle), y + r * (float)Math.Sin(angle), z);
                point.Intensity = 1f;
                point.Enabled = true;
                point.Modified = true;  // unmodified points keep their last state
            }
        }
    }

    private void OnEnable()
    {
        library = new VelarionLibrary();
        var devices = library.DeviceIdentifiers;
        if (devices.Count == 0)
        {
            Debug.LogWarning("StreamedCircle: no Velarion device found");
            enabled = false;
            return;
        }
        emitter = new TimePointStreamingEmitter(devices[0]);  // the array's own space
        Update();  // the first centre, before the first interval
        emitter.SetEmissionCallback(circle);
        emitter.Start();
    }

    private void Update()
    {
        if (target == null) return;
        UnityEngine.Vector3 p = transform.InverseTransformPoint(target.position);
        circle.X = p.x;  // the array's space is z-up
        circle.Y = p.z;
        circle.Z = p.y;
        circle.Radius = radius;
        circle.TurnsPerSecond = turnsPerSecond;
    }

    private void OnDisable()
    {
        if (emitter != null)
        {
            emitter.Stop();  // returns once the callback has returned for the last time
            emitter.Dispose();
        }
        library?.Dispose();
        emitter = null;
        library = null;
    }

    private void OnDestroy() => circle.Dispose();
}
