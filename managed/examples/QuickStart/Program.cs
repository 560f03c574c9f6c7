// The README's quick start as a program of its own. scripts/package-proof.sh
// drops it into a new console app that takes both packages from the local
// feed, and runs it on Linux and, published for win-x64, under Wine. The
// README quotes the region (a test keeps the two identical).
#region guide: quick-start
using System;
using Velarion;

using var library = new VelarionLibrary();
var ids = library.DeviceIdentifiers;
Console.WriteLine($"devices: {string.Join(", ", ids)}");
if (ids.Count == 0)
{
    Console.WriteLine("no device found");
    return 1;
}

using var emitter = new AmplitudeModulationEmitter(ids[0]);  // placed at the array's own space
var point = new AmplitudeModulationControlPoint(0f, 0f, 0.2f, intensity: 1f);
bool emitting = emitter.TryUpdate(new[] { point });  // false: the device library refused
Console.WriteLine($"a focal point 20 cm above {ids[0]}: {(emitting ? "emitting" : "refused")}");
return emitting ? 0 : 1;
#endregion
