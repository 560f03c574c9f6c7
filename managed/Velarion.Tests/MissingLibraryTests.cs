using System;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;
using Xunit;

namespace Velarion.Tests
{
    // Without the device library an application meets one exception that
    // names the file and the two ways to provide it: the demo, copied without
    // the emulator beside it, is such an application.
    public class MissingLibraryTests
    {
        [Fact]
        public void AnAppWithoutTheDeviceLibraryIsToldWhichFileAndHowToGetIt()
        {
            string demo = Path.GetFullPath(Path.Combine(AppContext.BaseDirectory, "..", "..", "Demo", "release"));
            if (!RuntimeInformation.IsOSPlatform(OSPlatform.Linux) || !File.Exists(Path.Combine(demo, "Demo.dll"))) return;

            string app = Path.Combine(Path.GetTempPath(), $"velarion-no-device-library-{Guid.NewGuid():N}");
            Directory.CreateDirectory(app);
            foreach (string file in Directory.GetFiles(demo).Where(f => !Path.GetFileName(f).StartsWith("libVelarion.so")))
                File.Copy(file, Path.Combine(app, Path.GetFileName(file)));
            try
            {
                var start = new ProcessStartInfo("dotnet", "Demo.dll")
                {
                    WorkingDirectory = app,
                    RedirectStandardError = true,
                    RedirectStandardOutput = true,
                };
                start.Environment.Remove("LD_LIBRARY_PATH");  // nothing but the app's own folder
                using var process = Process.Start(start)!;
                string errors = process.StandardError.ReadToEndAsync().Result;
                process.StandardOutput.ReadToEnd();
                Assert.True(process.WaitForExit(30_000), "the demo did not end");
                Assert.NotEqual(0, process.ExitCode);
                string first = errors.Split('\n').First(l => l.Contains("Exception"));
                Assert.Contains("System.DllNotFoundException: The Velarion device library (libVelarion.so) could not be loaded", first);
                Assert.Contains("VelarionSharp.Emulator", first);
                Assert.DoesNotContain("TypeInitializationException", errors);
            }
            finally
            {
                Directory.Delete(app, recursive: true);
            }
        }
    }
}
