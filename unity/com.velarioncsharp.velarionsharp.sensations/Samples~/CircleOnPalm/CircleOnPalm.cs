using UnityEngine;
using Velarion;
using Velarion.Sensations;
using Transform = UnityEngine.Transform;  // Velarion has a Transform too

// A circle felt on a palm that moves. Put this on the object that stands for
// the array (at its centre, its face in the object's XZ plane, emitting along
// +Y, scale 1 so that a unit is a metre) and drag the palm, a tracked hand's
// or any object, into Palm. The circle lies parallel to the array's face and
// follows the palm; it fades out while the palm is out of the array's reach
// and fades back in when it returns.
public sealed class CircleOnPalm : MonoBehaviour
{
    [SerializeField] private Transform palm;
    [SerializeField] private float radius = 0.02f;        // metres
    [SerializeField] private float drawFrequency = 60f;   // turns a second: 7.5 m/s at 2 cm, felt strongly

    private VelarionLibrary library;
    private TimePointStreamingEmitter emitter;
    private SensationPlayer player;
    private CircleSensation circle;
    private bool playing;

    private void OnEnable()
    {
        // First, so that a radius or frequency it cannot draw throws before anything is open.
        circle = new CircleSensation(radius, drawFrequency,
                                     envelope: IntensityEnvelope.Fade(fadeIn: 0.2, fadeOut: 0.1));
        library = new VelarionLibrary();
        var devices = library.DeviceIdentifiers;
        if (devices.Count == 0)
        {
            Debug.LogWarning("CircleOnPalm: no Velarion device found");
            enabled = false;
            return;
        }
        emitter = new TimePointStreamingEmitter(devices[0]);  // the array's own space
        // The player owns the emitter's callback and renders every sample on
        // the device library's emission thread; this script only tells it what
        // to play and where.
        player = new SensationPlayer(emitter);
        if (!player.Start()) Debug.LogWarning("CircleOnPalm: the device did not start (the log says why)");
    }

    private void Update()
    {
        if (player == null || palm == null) return;
        // Unity's space is y-up; the array's is z-up, with x and y across its face.
        UnityEngine.Vector3 p = transform.InverseTransformPoint(palm.position);
        var placement = System.Numerics.Matrix4x4.CreateTranslation(p.x, p.z, p.y);
        // Refused while the circle would reach where the array cannot focus.
        if (player.TrySetPlacement(placement))
        {
            // Nothing plays: the placement is taken wherever it is; play once the circle fits.
            if (!playing && player.WorkingVolume.Contains(placement.Translation, radius))
            {
                player.Play(circle);
                playing = true;
            }
        }
        else
        {
            player.StopAll();  // fades out; the next frames move it freely until it fits again
            playing = false;
        }
    }

    // Unity calls this before unloading the scripts too (on every compile).
    private void OnDisable()
    {
        player?.Dispose();   // fades out, stops the emitter and uninstalls its callback
        emitter?.Dispose();  // releases the device
        library?.Dispose();
        player = null;
        emitter = null;
        library = null;
        playing = false;
    }
}
