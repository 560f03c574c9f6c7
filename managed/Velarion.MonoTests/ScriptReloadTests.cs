using System;
using System.Threading;
using Xunit;

namespace Velarion.Tests
{
    // Unity's editor unloads its scripting domain on every compile and on
    // entering play mode, whatever the scripts left running. Here a domain
    // streams with a managed emission callback and a log callback, and is
    // unloaded with nothing disposed: no native thread may enter its unloaded
    // code, and the next domain must find the device free.
    public sealed class ScriptReloadTests
    {
        [Fact]
        public void AnUnloadedDomainLeavesNothingRunningAndTheNextStreamsToTheSameDevice()
        {
            string device;
            AppDomain first = NewDomain("script domain 1");
            try
            {
                var probe = Probe(first);
                device = probe.FirstDevice();
                Assert.Null(probe.Stream(device, leaveRunning: true));
            }
            finally
            {
                Unload(first);
            }

            AppDomain second = NewDomain("script domain 2");
            try
            {
                Assert.Null(Probe(second).Stream(device, leaveRunning: false));
            }
            finally
            {
                Unload(second);
            }
        }

        // Mono waits for every thread inside a domain to leave it: an emission
        // thread still calling in would hold the unload forever.
        private static void Unload(AppDomain domain)
        {
            string name = domain.FriendlyName;
            Exception failed = null;
            var unloading = new Thread(() =>
            {
                try
                {
                    AppDomain.Unload(domain);
                }
                catch (Exception e)
                {
                    failed = e;
                }
            }) { IsBackground = true };
            unloading.Start();
            Assert.True(unloading.Join(TimeSpan.FromSeconds(20)), $"{name} did not unload within 20 s: a native thread still runs its code");
            if (failed != null) throw new AssertException($"{name} did not unload: {failed}");
        }

        // The domain inherits this one's base folder, where the binding is.
        private static AppDomain NewDomain(string name) => AppDomain.CreateDomain(name);

        // netstandard2.1 leaves out what Mono has to make an object in another domain.
        private static StreamingProbe Probe(AppDomain domain) =>
            (StreamingProbe)typeof(AppDomain).GetMethod("CreateInstanceAndUnwrap", new[] { typeof(string), typeof(string) })
                .Invoke(domain, new object[] { typeof(StreamingProbe).Assembly.FullName, typeof(StreamingProbe).FullName });
    }

    // Runs inside a script domain; answers null when all went well, else what did not.
    public sealed class StreamingProbe : MarshalByRefObject
    {
        public string FirstDevice()
        {
            using var library = new VelarionLibrary();
            return library.DeviceIdentifiers[0];
        }

        public string Stream(string device, bool leaveRunning)
        {
            var library = new VelarionLibrary();
            if (library.IsDeviceClaimed(device)) return $"{device} is still claimed by an unloaded domain";
            LoggingExternalInterface logging = library.Logging;
            logging.RedirectToNull();
            logging.Level = DeviceLogLevel.Trace;
            var logged = new ManualResetEventSlim();
            var log = new DelegateLoggingCallback((message, level, area) => logged.Set());
            for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Trace; ++level) logging.SetCallback(level, log);

            var placement = new Transform();
            var emitter = new TimePointStreamingEmitter(device, placement);
            var streamed = new ManualResetEventSlim();
            int intervals = 0;
            var callback = new DelegateEmissionCallback(interval =>
            {
                // A step along a circle per interval. (Debian's Mono cannot index
                // a ReadOnlySpan, such as the interval's TimePoints, from
                // netstandard2.1 code.)
                double angle = 0.1 * intervals;
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    ref var point = ref interval[k, 0];
                    point.Position = new System.Numerics.Vector3(0.02f * (float)Math.Cos(angle), 0.02f * (float)Math.Sin(angle), 0.2f);
                    point.Intensity = 1f;
                    point.Enabled = true;
                    point.Modified = true;
                }
                if (Interlocked.Increment(ref intervals) == 50) streamed.Set();
            });
            if (!emitter.SetEmissionCallback(callback) || !emitter.Start()) return $"streaming to {device} did not start";
            library.ReloadHardwareConfigurations("no-such-file.vlcfg");  // a log line at least
            if (!streamed.Wait(TimeSpan.FromSeconds(10))) return $"{intervals} intervals streamed";
            if (!logged.Wait(TimeSpan.FromSeconds(10))) return "no log line";
            if (leaveRunning) return null;

            emitter.Stop();
            emitter.SetEmissionCallback(null);
            foreach (IDisposable d in new IDisposable[] { callback, emitter, placement, log, logging, library }) d.Dispose();
            return null;
        }
    }
}
