using System;
using System.Collections.Generic;
using System.Reflection;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // The device library calls managed code from its own threads, where an
    // exception unwinding into native frames ends the process: every way in
    // goes through a class that catches.
    public class CallbackGuardTests
    {
        private const long First = 5_000_000_000;
        private const long Spacing = 250_000_000;

        [Fact]
        public void TheRawWrappersCannotBeSubclassedOrMadeWithoutACallback()
        {
            // A wrapper without a callback override throws natively on its first
            // log line or interval; one subclassed directly lets a throwing
            // override unwind into the device library's thread.
            foreach (var type in new[] { typeof(LoggingCallbackWrapper), typeof(EmissionCallbackWrapper) })
            {
                Assert.True(type.IsAbstract, type.Name);
                Assert.True(type.GetMethod("callback").IsAbstract, type.Name);
                Assert.All(type.GetConstructors(BindingFlags.Instance | BindingFlags.Public | BindingFlags.NonPublic),
                           c => Assert.True(c.IsAssembly, $"{type.Name}: {c}"));
            }
        }

        private sealed class PausingCallback : EmissionCallback
        {
            public int Asked;
            public int Emitted;
            public bool Paused;
            public Exception Failure;

            protected override void OnEmission(EmissionInterval interval) => ++Emitted;

            protected override bool OnIsSuspended()
            {
                ++Asked;
                if (Failure != null) throw Failure;
                return Paused;
            }
        }

        [Fact]
        public void ASuspensionOverrideIsAskedEachIntervalAndItsExceptionsStayManaged()
        {
            using var stepped = new SteppedStreaming();
            using var callback = new PausingCallback();
            var failures = new List<Exception>();
            callback.EmissionFailed += failures.Add;
            Assert.True(stepped.Emitter.setManagedEmissionCallback(callback));

            stepped.Step(First, Spacing, 2, 1);
            callback.Paused = true;
            stepped.Step(First, Spacing, 2, 1);
            Assert.Equal((2, 1), (callback.Asked, callback.Emitted));

            // A throwing override counts as the native flag's answer: not suspended.
            callback.Failure = new InvalidOperationException("query bug");
            stepped.Step(First, Spacing, 2, 1);  // returns: nothing unwound through native frames
            Assert.Equal((3, 2), (callback.Asked, callback.Emitted));
            Assert.Equal("query bug", Assert.Single(failures).Message);

            // The default OnSetSuspended stores that flag, which the failing query then falls back on.
            callback.Suspended = true;
            stepped.Step(First, Spacing, 2, 1);
            Assert.Equal((4, 2), (callback.Asked, callback.Emitted));

            // Called from managed code, the override's exception reaches the caller.
            Assert.Throws<InvalidOperationException>(() => callback.Suspended);
            stepped.Emitter.setManagedEmissionCallback(null);
        }
    }
}
