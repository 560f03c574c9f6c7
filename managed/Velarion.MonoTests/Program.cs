using System;
using System.Diagnostics;
using System.Linq;
using System.Reflection;
using System.Threading.Tasks;
using Xunit;

namespace Velarion.Tests
{
    // Runs every [Fact] of this assembly, one at a time, each on a new
    // instance of its class, and ends with "N passed, N failed". Arguments
    // select tests whose full name contains one of them.
    public static class Program
    {
        public static int Main(string[] args)
        {
            LeakMode.SwitchOn();
            var tests = typeof(Program).Assembly.GetTypes()
                .Where(t => t.IsClass && t.IsPublic && !t.IsAbstract)
                // First, while this domain has not used the binding: the
                // domains they make register the interop modules' callbacks.
                .OrderBy(t => t == typeof(ScriptReloadTests) ? 0 : 1).ThenBy(t => t.FullName, StringComparer.Ordinal)
                .SelectMany(t => t.GetMethods(BindingFlags.Public | BindingFlags.Instance)
                    .Where(m => m.GetCustomAttribute<FactAttribute>() != null)
                    .OrderBy(m => m.Name, StringComparer.Ordinal))
                .Where(m => args.Length == 0 || args.Any(a => Name(m).Contains(a)))
                .ToList();
            int passed = 0, failed = 0, skipped = 0;
            foreach (MethodInfo test in tests)
            {
                string skip = test.GetCustomAttribute<FactAttribute>().Skip;
                if (skip != null)
                {
                    Console.WriteLine($"SKIP {Name(test)}: {skip}");
                    ++skipped;
                    continue;
                }
                var clock = Stopwatch.StartNew();
                try
                {
                    Run(test);
                    Console.WriteLine($"PASS {Name(test)} ({clock.ElapsedMilliseconds} ms)");
                    ++passed;
                }
                catch (Exception e)
                {
                    Console.WriteLine($"FAIL {Name(test)}: {e}");
                    ++failed;
                }
            }
            Console.WriteLine($"{passed} passed, {failed} failed" + (skipped > 0 ? $", {skipped} skipped" : ""));
            return failed == 0 && passed > 0 ? 0 : 1;
        }

        private static string Name(MethodInfo test) => $"{test.DeclaringType.Name}.{test.Name}";

        private static void Run(MethodInfo test)
        {
            object instance = null;
            try
            {
                instance = Activator.CreateInstance(test.DeclaringType);
                if (test.Invoke(instance, null) is Task task) task.GetAwaiter().GetResult();
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
    }
}
