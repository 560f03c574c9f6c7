using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using Xunit;

namespace Velarion.Tests
{
    // Without the device library a netstandard2.1 program meets the binding's
    // one DllNotFoundException, whichever call comes first: a copy of this
    // program without the emulator beside it makes each kind of first call.
    public sealed class MissingDeviceLibraryTests
    {
        internal const string Argument = "--first-calls-without-the-device-library";

        // Each kind of first call, in one process: as nothing loads, each call
        // meets the library missing as the first did.
        private static readonly Dictionary<string, Action> FirstCalls = new Dictionary<string, Action>
        {
            ["vector"] = () => new NVector3(3f, 0f, 4f).Normalize(),
            ["matrix"] = () => Matrix4x4.Identity.Inverse(),
            ["alignment"] = () => new Alignment(),
            ["interface version"] = () => _ = InterfaceVersion.Version,
            ["library"] = () => new VelarionLibrary(),
            ["vector again"] = () => new NVector3(1f, 2f, 2f).Length(),
        };

        // In the copy: one line per call, "name: exception type: message".
        internal static int ReportFirstCalls()
        {
            foreach (var call in FirstCalls)
            {
                try
                {
                    call.Value();
                    Console.WriteLine($"{call.Key}: no exception");
                }
                catch (Exception e)
                {
                    Console.WriteLine($"{call.Key}: {e.GetType().FullName}: {e.Message}");
                }
            }
            return 0;
        }

        [Fact]
        public void EveryFirstCallNamesTheFileAndTheTwoFixes()
        {
            string here = AppDomain.CurrentDomain.BaseDirectory;
            string copy = Path.Combine(Path.GetTempPath(), $"velarion-mono-no-device-library-{Guid.NewGuid():N}");
            Directory.CreateDirectory(copy);
            try
            {
                foreach (string file in Directory.GetFiles(here).Where(f => !Path.GetFileName(f).StartsWith("libVelarion.so")))
                    File.Copy(file, Path.Combine(copy, Path.GetFileName(file)));
                var start = new ProcessStartInfo(Process.GetCurrentProcess().MainModule.FileName,
                                                 $"--debug Velarion.MonoTests.dll {Argument}")
                {
                    WorkingDirectory = copy,
                    RedirectStandardOutput = true,
                    RedirectStandardError = true,
                    UseShellExecute = false,
                };
                start.EnvironmentVariables.Remove("LD_LIBRARY_PATH");  // nothing but the program's own folder
                using var process = Process.Start(start);
                var errors = process.StandardError.ReadToEndAsync();
                string output = process.StandardOutput.ReadToEnd();
                Assert.True(process.WaitForExit(30_000), "the copy did not end");
                Assert.True(process.ExitCode == 0, $"the copy failed: {errors.Result}");
                var lines = output.Split(new[] { '\n' }, StringSplitOptions.RemoveEmptyEntries);
                Assert.Equal(FirstCalls.Keys, lines.Select(l => l.Substring(0, l.IndexOf(':'))));
                Assert.All(lines, line =>
                {
                    Assert.Contains(": System.DllNotFoundException: The Velarion device library (libVelarion.so) could not be loaded", line);
                    Assert.Contains("VelarionSharp.Emulator", line);
                });
            }
            finally
            {
                Directory.Delete(copy, recursive: true);
            }
        }
    }
}
