using UnityEngine;
using Velarion;
using Transform = UnityEngine.Transform;  // Velarion has a Transform too

// A focal point that follows a scene object. Put this on the object that
// stands for the array (at its centre, its face in the object's XZ plane,
// emitting along +Y, scale 1 so that a unit is a metre) and drag the object
// to follow into Target: the array keeps a point felt where it is.
public sealed class FocalPoint : MonoBehaviour
{
    [SerializeField] private Transform target;
    [SerializeField, Range(0f, 1f)] private float intensity = 1f;
    [SerializeField] private float modulationFrequency = 200f;  // Hz: what the skin feels

    private VelarionLibrary library;
    private Velarion.Transform placement;
    private AmplitudeModulationEmitter emitter;

    private void OnEnable()
    {
        library = new VelarionLibrary();
        var devices = library.DeviceIdentifiers;
        if (devices.Count == 0)
        {
            Debug.LogWarning("FocalPoint: no Velarion device found");
            enabled = false;
            return;
        }
        placement = new Velarion.Transform();  // the array's own space
        emitter = new AmplitudeModulationEmitter(devices[0], placement);
    }

    private void Update()
    {
        if (emitter == null || target == null) return;
        // Unity's space is y-up; the array's is z-up, with x and y across its face.
        UnityEngine.Vector3 p = transform.InverseTransformPoint(target.position);
        using var point = new AmplitudeModulationControlPoint(p.x, p.z, p.y, intensity, modulationFrequency);
        emitter.Update(point);  // emitted until the next update
    }

    // Unity calls this before unloading the scripts too (on every compile).
    private void OnDisable()
    {
        emitter?.Stop();
        emitter?.Dispose();
        placement?.Dispose();
        library?.Dispose();
        emitter = null;
        placement = null;
        library = null;
    }
}
