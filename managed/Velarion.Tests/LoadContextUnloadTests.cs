using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Runtime.CompilerServices;
using System.Runtime.Loader;
using System.Threading;
using Xunit;

namespace Velarion.Tests
{
    // Alone: a second copy of the binding registers the interop modules'
    // callbacks for itself, so no other test may call in meanwhile.
    [CollectionDefinition("Second copy of the binding", DisableParallelization = true)]
    public sealed class SecondBindingCopy
    {
    }

    // .NET's counterpart of a script reload: a collectible load context with
    // its own copy of the binding is unloaded while it streams and logs.
    [Collection("Second copy of the binding")]
    public class LoadContextUnloadTests
    {
        [Fact]
        public void AnUnloadedContextStopsItsEmittersAndRemovesItsLogCallbacks()
        {
            EmulatedDevices.WaitUntilFree();
            using var library = new VelarionLibrary();
            string device = library.DeviceIdentifiers[0];
            int lines = 0;
            try
            {
                var context = StreamInAnotherCopy(device, () => Interlocked.Increment(ref lines));
                Assert.True(library.IsDeviceClaimed(device));
                library.ReloadHardwareConfigurations("no-such-file.vlcfg");  // logs an error to every library
                Assert.True(Volatile.Read(ref lines) > 0);
                context.Unload();  // nothing disposed: the binding's Unloading handler frees it all
            }
            finally
            {
                Reregister();
            }

            Assert.False(library.IsDeviceClaimed(device), "the unloaded context's emitter still holds the device");
            int before = Volatile.Read(ref lines);
            library.ReloadHardwareConfigurations("no-such-file.vlcfg");
            Assert.Equal(before, Volatile.Read(ref lines));
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private static AssemblyLoadContext StreamInAnotherCopy(string device, Action logged)
        {
            var context = new AssemblyLoadContext("scripts", isCollectible: true);
            Assembly binding = context.LoadFromAssemblyPath(typeof(VelarionLibrary).Assembly.Location);
            Type Named(string name) => binding.GetType("Velarion." + name, throwOnError: true);
            object Level(DeviceLogLevel level) => Enum.ToObject(Named(nameof(DeviceLogLevel)), (int)level);

            object library = Activator.CreateInstance(Named(nameof(VelarionLibrary)));
            object logging = library.GetType().GetProperty(nameof(VelarionLibrary.Logging)).GetValue(library);
            logging.GetType().GetProperty(nameof(LoggingExternalInterface.Level)).SetValue(logging, Level(DeviceLogLevel.Trace));
            logging.GetType().GetMethod(nameof(LoggingExternalInterface.RedirectToNull)).Invoke(logging, null);
            var handler = new Action<string, uint, uint, string>((_, _, _, _) => logged());
            object log = Activator.CreateInstance(Named(nameof(DelegateLoggingCallback)), handler);
            MethodInfo setCallback = logging.GetType().GetMethod(nameof(LoggingExternalInterface.SetCallback));
            for (var level = DeviceLogLevel.Error; level <= DeviceLogLevel.Trace; ++level)
            {
                Assert.True((bool)setCallback.Invoke(logging, new[] { Level(level), log }));
            }
            object emitter = Activator.CreateInstance(Named(nameof(TimePointStreamingEmitter)), device);
            Assert.True((bool)emitter.GetType().GetMethod(nameof(TimePointStreamingEmitter.Start)).Invoke(emitter, null));
            return context;
        }

        // This copy's module callbacks again, in place of the unloaded copy's.
        private static void Reregister()
        {
            var registers = typeof(VelarionLibrary).Assembly.GetTypes()
                .Select(t => t.GetMethod("SwigRegister", BindingFlags.Static | BindingFlags.NonPublic))
                .Where(m => m != null)
                .ToList();
            Assert.Equal(3, registers.Count);
            foreach (MethodInfo register in registers) register.Invoke(null, null);
        }
    }
}
