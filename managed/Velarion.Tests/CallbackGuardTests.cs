using System;
using System.Collections.Concurrent;
using System.Collections.Generic;
using System.IO;
using System.Linq;
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
            foreach (var type in new[] { typeof(Raw.LoggingCallbackWrapper), typeof(Raw.EmissionCallbackWrapper) })
            {
                Assert.True(type.IsAbstract, type.Name);
                var callback = type.GetMethod("callback", BindingFlags.Instance | BindingFlags.NonPublic);
                Assert.True(callback.IsAbstract && callback.IsAssembly, type.Name);
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
            stepped.Emitter.SetEmissionCallback(callback);

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
            stepped.Emitter.SetEmissionCallback(null);
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
            logging.SetCallback((DeviceLogLevel)2, log);
            return new WeakReference(log);
        }

        private static void LogAnAlignmentFailure(string marker)
        {
            using var alignment = new Alignment();
            Assert.False(alignment.TryLoad(Path.Combine(Path.GetTempPath(), $"no-such-folder-{marker}", "a")));
        }

        [Fact]
        public void AnInstalledLogCallbackStaysReachableWithItsLibraryUntilReplaced()
        {
            // Collected, the wrapper would delete the native object the next log line is delivered to.
            var lines = new ConcurrentQueue<string>();
            using var moved = new VelarionLibrary();
            var installed = InstallLogWithoutKeepingIt(moved.Logging, lines);
            Collect();
            Assert.True(installed.IsAlive);
            string marker = Guid.NewGuid().ToString("N");
            LogAnAlignmentFailure(marker);
            Assert.Contains(lines, line => line.Contains(marker));

            moved.Logging.SetCallback((DeviceLogLevel)2, null);
            Collect();
            Assert.False(installed.IsAlive);  // released once replaced
        }

        private sealed class Suspendable : EmissionCallback
        {
            protected override void OnEmission(EmissionInterval interval) { }
            protected override bool OnIsSuspended() => false;
            protected override void OnSetSuspended(bool suspended) { }
        }

        [Fact]
        public void EveryDelegateHandedToNativeCodeIsAMarkedStaticMethod()
        {
            // IL2CPP and NativeAOT cannot call instance delegates from native code.
            using var log = new DelegateLoggingCallback((_, _, _, _) => { });
            using var emission = new Suspendable();
            using (new Raw.ControlPointCollection()) { }  // registers the other modules
            var registered = Velarion.Interop.NativeCallbacks.Registered;
            Assert.True(registered.Length >= 14 + 1 + 4, $"{registered.Length} registered");
            Assert.All(registered, d =>
            {
                Assert.True(d.Method.IsStatic, d.Method.Name);
                var marked = d.Method.GetCustomAttribute<Velarion.Interop.MonoPInvokeCallbackAttribute>();
                Assert.True(marked != null && marked.Type == d.GetType(), d.Method.Name);
            });

            // And no import takes a delegate of a type that is not registered that way.
            var kinds = new HashSet<Type>(Array.ConvertAll(registered, d => d.GetType()));
            var imports = typeof(NVector3).Assembly.GetTypes()
                .SelectMany(t => t.GetMethods(BindingFlags.Static | BindingFlags.Public | BindingFlags.NonPublic))
                .Where(m => m.GetCustomAttribute<System.Runtime.InteropServices.DllImportAttribute>() != null);
            foreach (var import in imports)
            foreach (var parameter in import.GetParameters().Where(p => typeof(Delegate).IsAssignableFrom(p.ParameterType)))
                Assert.True(kinds.Contains(parameter.ParameterType), $"{import.Name}({parameter.ParameterType.Name})");
        }

        [Fact]
        public void FailuresNobodyListensForAreReportedOnceASecondWithACount()
        {
            using var stepped = new SteppedStreaming();
            int thrown = 0;
            using var callback = new DelegateEmissionCallback(_ => throw new InvalidOperationException($"bug {++thrown}"));
            long now = 0;
            var output = new StringWriter();
            callback.Failures.Clock = () => now;
            callback.Failures.Output = output;
            stepped.Emitter.SetEmissionCallback(callback);

            stepped.Step(First, Spacing, 2, 1);  // the first in full, with its stack trace
            for (int i = 0; i < 200; ++i) stepped.Step(First, Spacing, 2, 1);
            now += Velarion.FailureReport.Second / 2;
            stepped.Step(First, Spacing, 2, 1);
            now += Velarion.FailureReport.Second / 2;
            stepped.Step(First, Spacing, 2, 1);  // a second since the last line
            stepped.Step(First, Spacing, 2, 1);

            var lines = output.ToString().Split(Environment.NewLine, StringSplitOptions.RemoveEmptyEntries)
                .Where(l => l.StartsWith("Velarion:")).ToArray();
            Assert.Equal(2, lines.Length);
            Assert.Contains("bug 1", lines[0]);
            Assert.Contains(" at ", output.ToString().Split("Velarion:")[1]);
            Assert.Equal("Velarion: emission callback failed 202 more times; the first: InvalidOperationException: bug 2", lines[1]);
            Assert.DoesNotContain(" at ", lines[1]);
            stepped.Emitter.SetEmissionCallback(null);
        }
    }
}
