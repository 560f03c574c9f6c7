using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Linq;
using System.Reflection;
using System.Threading.Tasks;
using Xunit;

namespace Velarion.Tests
{
    // Runs every [Fact] of this assembly and every row of each [Theory], one
    // at a time, each on a new instance of its class, and ends with "N passed,
    // N failed". Arguments select tests whose name contains one of them.
    public static class Program
    {
        public static int Main(string[] args)
        {
            if (args.Length == 1 && args[0] == MissingDeviceLibraryTests.Argument) return MissingDeviceLibraryTests.ReportFirstCalls();
            LeakMode.SwitchOn();
            var tests = typeof(Program).Assembly.GetTypes()
                .Where(t => t.IsClass && (t.IsPublic || t.IsNestedPublic) && !t.IsAbstract)
                // First, while this domain has not used the binding: the
                // domains they make register the interop modules' callbacks.
                .OrderBy(t => t == typeof(ScriptReloadTests) ? 0 : 1).ThenBy(t => t.FullName, StringComparer.Ordinal)
                .SelectMany(t => t.GetMethods(BindingFlags.Public | BindingFlags.Instance)
                    .Where(m => m.GetCustomAttribute<FactAttribute>() != null)
                    .OrderBy(m => m.Name, StringComparer.Ordinal))
                .SelectMany(Cases)
                .Where(c => args.Length == 0 || args.Any(a => c.Name.Contains(a)))
                .ToList();
            int passed = 0, failed = 0, skipped = 0;
            foreach (var (test, arguments, name) in tests)
            {
                string skip = test.GetCustomAttribute<FactAttribute>().Skip ?? (Drawing.Contains(name) ? DrawingSkipped : null);
                if (skip != null)
                {
                    Console.WriteLine($"SKIP {name}: {skip}");
                    ++skipped;
                    continue;
                }
                var clock = Stopwatch.StartNew();
                try
                {
                    Run(test, arguments);
                    Console.WriteLine($"PASS {name} ({clock.ElapsedMilliseconds} ms)");
                    ++passed;
                }
                catch (Exception e)
                {
                    Console.WriteLine($"FAIL {name}: {e}");
                    ++failed;
                }
            }
            Console.WriteLine($"{passed} passed, {failed} failed" + (skipped > 0 ? $", {skipped} skipped" : ""));
            return failed == 0 && passed > 0 ? 0 : 1;
        }

        // Pictures need SkiaSharp, whose netstandard2.0 build pins a
        // ReadOnlySpan, which Debian's Mono cannot (MissingMethodException):
        // the maps are checked here, the pictures on .NET only.
        private static readonly string[] Drawing = { "EmulatorControlTests.AStreamingEmittersMapPlots", "FieldTests.BothPicturesAreWrittenAsPng" };
        private const string DrawingSkipped = "SkiaSharp does not run on this Mono (ReadOnlySpan<T>.GetPinnableReference is missing)";

        // A fact once; a theory once per row of its member data.
        private static IEnumerable<(MethodInfo Test, object[] Arguments, string Name)> Cases(MethodInfo test)
        {
            var data = test.GetCustomAttribute<MemberDataAttribute>();
            if (data == null) return new[] { (test, (object[])null, Name(test)) };
            var rows = (IEnumerable<object[]>)test.DeclaringType.GetProperty(data.MemberName, BindingFlags.Public | BindingFlags.Static)
                .GetValue(null);
            return rows.Select(row => (test, row, $"{Name(test)}({string.Join(", ", row)})"));
        }

        private static string Name(MethodInfo test) => $"{test.DeclaringType.Name}.{test.Name}";

        private static void Run(MethodInfo test, object[] arguments)
        {
            object instance = null;
            try
            {
                // A class that writes to the test output gets it in its constructor.
                instance = test.DeclaringType.GetConstructors().Single().GetParameters().Length == 0
                    ? Activator.CreateInstance(test.DeclaringType)
                    : Activator.CreateInstance(test.DeclaringType, new ConsoleOutput());
                if (test.Invoke(instance, arguments) is Task task) task.GetAwaiter().GetResult();
            }
            catch (TargetInvocationException e) when (e.InnerException != null)
            {
                throw e.InnerException;
            }
            finally
            {
                (instance as IDisposable)?.Dispose();
            }
        }

        private sealed class ConsoleOutput : ITestOutputHelper
        {
            public void WriteLine(string message) => Console.WriteLine("  " + message);
        }
    }
}
