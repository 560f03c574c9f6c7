namespace Velarion.Tests
{
    // Where the tests make their streaming emitters: one place to change
    // when the emitter's constructor does.
    internal static class Emitters
    {
        internal const string A16 = "VLA16-2A1F0031";

        // A streaming emitter on an emulated array, placed at the origin of its space.
        internal static TimePointStreamingEmitter Streaming(string identifier = A16) => new TimePointStreamingEmitter(identifier);
    }
}
