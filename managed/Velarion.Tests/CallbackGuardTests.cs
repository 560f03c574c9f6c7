using System;
using System.Collections.Concurrent;
using System.Collections.Generic;
using System.IO;
using System.Reflection;
using System.Runtime.CompilerServices;
using Velarion.Emulation;
using Xunit;

namespace Velarion.Tests
{
    // The device library calls managed code from its own threads, where an
    // exception unwinding into native frames ends the process: every way in
    // goes through a class that catches, and stays reachable while installed.
    [Collection("Emulated devices")]
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

        private static void Collect()
        {
            GC.Collect();
            GC.WaitForPendingFinalizers();
            GC.Collect();
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static WeakReference InstallLogWithoutKeepingIt(LoggingExternalInterface logging, ConcurrentQueue<string> lines)
        {
            var log = new DelegateLoggingCallback((message, _, _, area) =>
            {
                if (area == "Alignment") lines.Enqueue(message);
            });
            Assert.True(logging.setManagedLoggingCallback(2, log));
            return new WeakReference(log);
        }

        private static void LogAnAlignmentFailure(string marker)
        {
            using var alignment = new Alignment();
            Assert.False(alignment.loadAlignment(Path.Combine(Path.GetTempPath(), $"no-such-folder-{marker}", "a")));
        }

        [Fact]
        public void AnInstalledLogCallbackStaysReachableWithItsLibraryUntilReplaced()
        {
            // Collected, the wrapper would delete the native object the next log line is delivered to.
            var lines = new ConcurrentQueue<string>();
            var moved = InstallThenMoveTheLibrary(lines, out var installed);
            Collect();
            Assert.True(installed.IsAlive);
            string marker = Guid.NewGuid().ToString("N");
            LogAnAlignmentFailure(marker);
            Assert.Contains(lines, line => line.Contains(marker));

            Assert.True(moved.getLoggingInterface().setManagedLoggingCallback(2, null));
            Collect();
            Assert.False(installed.IsAlive);  // released once replaced
            moved.Dispose();
        }

        // Installs through one library, moves it into another and drops the first.
        [MethodImpl(MethodImplOptions.NoInlining)]
        private static VelarionLibrary InstallThenMoveTheLibrary(ConcurrentQueue<string> lines, out WeakReference installed)
        {
            var library = new VelarionLibrary();
            installed = InstallLogWithoutKeepingIt(library.getLoggingInterface(), lines);
            var moved = new VelarionLibrary(library);
            library.Dispose();
            return moved;
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static TimePointStreamingEmitter InstallThenMoveTheEmitter(out WeakReference installed)
        {
            var emitter = new TimePointStreamingEmitter();
            var callback = new DelegateEmissionCallback(interval => { });
            Assert.True(emitter.setManagedEmissionCallback(callback));
            installed = new WeakReference(callback);
            var moved = new TimePointStreamingEmitter(emitter);
            emitter.Dispose();
            return moved;
        }

        [Fact]
        public void AMovedEmitterKeepsTheCallbackInstalledBeforeTheMove()
        {
            using var moved = InstallThenMoveTheEmitter(out var installed);
            Collect();
            Assert.True(installed.IsAlive);
            Assert.True(moved.setManagedEmissionCallback(null));
            Collect();
            Assert.False(installed.IsAlive);
        }
    }
}
