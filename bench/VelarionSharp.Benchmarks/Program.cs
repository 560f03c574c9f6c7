using BenchmarkDotNet.Running;

namespace Velarion.Benchmarks
{
    public static class Program
    {
        // Each benchmark runs in a process of its own, so the floors that
        // register their own callbacks never meet the binding's.
        public static void Main(string[] args) => BenchmarkSwitcher.FromAssembly(typeof(Program).Assembly).Run(args);
    }
}
