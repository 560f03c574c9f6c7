using System;
using System.Collections.Generic;
using System.Linq;
using System.Runtime.CompilerServices;
using Velarion.Interop;

namespace Velarion.Tests
{
    // Every test runs in leak-identifying mode: an owned native object that
    // reaches the finalizer instead of Dispose is recorded by type, and the
    // total is printed when the test process ends. (Some tests forget objects
    // on purpose, to check that forgotten objects are safe.)
    internal static class LeakMode
    {
        private static readonly Dictionary<string, int> seen = new Dictionary<string, int>();

        [ModuleInitializer]
        internal static void SwitchOn()
        {
            HandleLeaks.Enabled = true;
            AppDomain.CurrentDomain.ProcessExit += (_, _) =>
            {
                GC.Collect();
                GC.WaitForPendingFinalizers();
                Remember(HandleLeaks.Take());
                if (seen.Count == 0) return;
                Console.Error.WriteLine("Native objects that reached the finalizer instead of Dispose: " +
                                        string.Join(", ", seen.OrderBy(p => p.Key).Select(p => $"{p.Key} x{p.Value}")));
            };
        }

        internal static void Remember(Dictionary<string, int> leaked)
        {
            lock (seen)
            {
                foreach (var p in leaked) seen[p.Key] = (seen.TryGetValue(p.Key, out int n) ? n : 0) + p.Value;
            }
        }
    }
}
