using System;
using System.Diagnostics;
using System.Threading;
using Xunit;

namespace Velarion.Tests
{
    // Tests that claim the emulated arrays run one at a time, and each starts
    // with every array free: an emitter a test dropped is released by the
    // finalizer, one disposed inside its own callback a moment later.
    [CollectionDefinition("Emulated devices")]
    public sealed class EmulatedDevices
    {
        internal static void WaitUntilFree()
        {
            using var library = new VelarionLibrary();
            var limit = Stopwatch.StartNew();
            while (true)
            {
                bool claimed = false;
                foreach (string identifier in library.DeviceIdentifiers) claimed |= library.IsDeviceClaimed(identifier);
                if (!claimed) return;
                Assert.True(limit.Elapsed < TimeSpan.FromSeconds(10), "an emulated device stays claimed after its test");
                GC.Collect();
                GC.WaitForPendingFinalizers();
                Thread.Sleep(1);
            }
        }
    }
}
