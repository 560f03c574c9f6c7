using UnityEngine;
using Velarion;

// The device library's log in Unity's console, from Error up to Level.
// Put it on any object of the scene.
public sealed class ConsoleLog : MonoBehaviour
{
    [SerializeField] private DeviceLogLevel level = DeviceLogLevel.Info;

    private VelarionLibrary library;
    private DelegateLoggingCallback log;

    private void OnEnable()
    {
        library = new VelarionLibrary();
        log = new DelegateLoggingCallback(Write);
        LoggingExternalInterface logging = library.Logging;
        logging.RedirectToNull();  // the console instead of standard error: no line twice
        logging.Level = level;
        for (var l = DeviceLogLevel.Error; l <= level; ++l) logging.SetCallback(l, log);
    }

    // Called on whichever thread logs, the device library's own included;
    // Unity's Debug methods may be called from any thread.
    private static void Write(string message, DeviceLogLevel level, string area)
    {
        string line = $"[Velarion {area}] {message}";
        if (level == DeviceLogLevel.Error) Debug.LogError(line);
        else if (level == DeviceLogLevel.Warning) Debug.LogWarning(line);
        else Debug.Log(line);
    }

    private void OnDisable()
    {
        // Disposing the library removes its callbacks, once none is running.
        library?.Dispose();
        log?.Dispose();
        library = null;
        log = null;
    }
}
