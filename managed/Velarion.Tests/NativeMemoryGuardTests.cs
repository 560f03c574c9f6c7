using System;
using System.Runtime.CompilerServices;
using Xunit;

namespace Velarion.Tests
{
    using Velarion.Raw;

    // The raw layer under the public API: handles into another object's
    // storage keep that object's native memory, and buffers the device library
    // fills are never overrun. The public API relies on both.
    [Collection("Emulated devices")]
    public class NativeMemoryGuardTests
    {
        // Makes an owner, borrows from it and lets go of it.
        [MethodImpl(MethodImplOptions.NoInlining)]
        private static (object Borrowed, WeakReference Owner) BorrowFromADroppedOwner<T>(Func<T> make, Func<T, object> borrow)
        {
            T owner = make();
            return (borrow(owner), new WeakReference(owner));
        }

        [Fact]
        public void BorrowedHandlesKeepTheirOwnersNativeObjects()
        {
            // Collected, each owner would free the memory the borrowed handle points into.
            var cases = new[]
            {
                BorrowFromADroppedOwner(() => new ControlPointBase(1, 2, 3, 0.5f), r => r.position),
                BorrowFromADroppedOwner(() => Transform.translation(1, 2, 3), t => t.basis()),
                BorrowFromADroppedOwner(() => Transform.translation(1, 2, 3), t => t.origin_internal()),
                BorrowFromADroppedOwner(() => new TimePointStreamingEmitter(), e => e.getManagedSamplingInterval()),
                BorrowFromADroppedOwner(() => new VelarionLibrary(), l => l.getLoggingInterface()),
            };
            GC.Collect();
            GC.WaitForPendingFinalizers();
            GC.Collect();

            // The owners' proxies may be gone; their native objects are not.
            Assert.Equal(2f, ((NVector3)cases[0].Borrowed).y);
            Assert.Equal(1.0, ((Matrix3x3)cases[1].Borrowed).at(2, 2));
            Assert.Equal(3f, ((NVector3)cases[2].Borrowed).z);
            Assert.True(((HostDuration)cases[3].Borrowed).nanoseconds() > 0);
            Assert.InRange(((LoggingExternalInterface)cases[4].Borrowed).getLogLevel(), 0, 5);
            foreach (var c in cases) ((IDisposable)c.Borrowed).Dispose();
        }

        [Fact]
        public void ExtendedOptionBuffersAreNotOverrun()
        {
            // The device library writes up to `size` bytes, trusting the caller.
            var small = new byte[2];
            using (var emitter = new AmplitudeModulationEmitter())
            {
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", small, 8));
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", null, 1));
            }
            using (var emitter = new TimePointStreamingEmitter())
            {
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", small, 3));
                Assert.Equal(emitter.getExtendedOption_internal("speedOfSound", null, 0),
                             emitter.getExtendedOption_internal("speedOfSound", new byte[16], 16));
            }
            Assert.All(small, b => Assert.Equal(0, b));
        }
    }
}
