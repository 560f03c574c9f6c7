using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Runtime.CompilerServices;
using Velarion.Interop;

namespace Velarion.Tests
{
    // Every test runs in leak-identifying mode: an owned native object that
    // reaches the finalizer instead of Dispose is recorded by type, and the
    // totals are written to leaked-handles.txt beside the test assembly when
    // the test process ends. (Some tests forget objects on purpose, to check
    // that forgotten objects are safe.)
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
                string report = seen.Count == 0
                    ? "none"
                    : string.Join(Environment.NewLine, seen.OrderBy(p => p.Key).Select(p => $"{p.Key} x{p.Value}"));
                // Beside the test assembly: the test host does not show what it prints on exit.
                File.WriteAllText(Path.Combine(AppContext.BaseDirectory, "leaked-handles.txt"), report + Environment.NewLine);
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
