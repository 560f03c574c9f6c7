using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Runtime.CompilerServices;
using System.Text.RegularExpressions;
using Xunit;

namespace Velarion.Tests
{
    // The README's C# blocks are quoted from code that compiles: a block marked
    // <!-- guide: NAME --> must be exactly the text of `#region guide: NAME` in
    // managed/examples/Guide (built with this project) or QuickStart (built by
    // the package proof), without the region's indentation. And the guide runs,
    // top to bottom.
    [Collection("Emulated devices")]
    public class GuideTests
    {
        // The guide opens the emulated arrays: it starts, as the collection's
        // other tests do, once an emitter a test dropped has let go of them.
        public GuideTests() => EmulatedDevices.WaitUntilFree();

        private static string Root([CallerFilePath] string here = "") =>
            Path.GetFullPath(Path.Combine(Path.GetDirectoryName(here), "..", ".."));

        private static readonly Regex Marker = new Regex(@"^<!--\s*guide:\s*(\S+)\s*-->\s*$");
        private static readonly Regex RegionStart = new Regex(@"^(\s*)#region guide: (\S+)\s*$");

        internal static Dictionary<string, string> Regions(string folder)
        {
            var regions = new Dictionary<string, string>();
            foreach (string file in Directory.GetFiles(folder, "*.cs"))
            {
                string[] lines = File.ReadAllLines(file);
                // A region inside a method is quoted with its file's using
                // directives first, so that the block compiles on its own.
                var usings = lines.TakeWhile(l => !l.StartsWith("namespace")).Where(l => l.StartsWith("using ")).ToList();
                for (int i = 0; i < lines.Length; ++i)
                {
                    Match start = RegionStart.Match(lines[i]);
                    if (!start.Success) continue;
                    string indent = start.Groups[1].Value;
                    var body = new List<string>();
                    if (indent.Length > 0 && usings.Count > 0) body.AddRange(usings.Append(""));
                    for (++i; i < lines.Length && lines[i].Trim() != "#endregion"; ++i)
                    {
                        string line = lines[i];
                        Assert.True(line.Length == 0 || line.StartsWith(indent), $"{file}:{i + 1} is left of its region");
                        body.Add(line.Length == 0 ? "" : line.Substring(indent.Length));
                    }
                    Assert.True(i < lines.Length, $"{file}: region {start.Groups[2].Value} has no #endregion");
                    Assert.True(regions.TryAdd(start.Groups[2].Value, string.Join("\n", body)),
                                $"region {start.Groups[2].Value} defined twice");
                }
            }
            return regions;
        }

        // The marked blocks of a Markdown text: the fenced block right after each marker.
        internal static List<(string Name, string Code, int Line)> Blocks(string markdown)
        {
            var blocks = new List<(string, string, int)>();
            string[] lines = markdown.Replace("\r\n", "\n").Split('\n');
            for (int i = 0; i < lines.Length; ++i)
            {
                Match marker = Marker.Match(lines[i]);
                if (!marker.Success) continue;
                Assert.True(i + 1 < lines.Length && lines[i + 1].Trim() == "```csharp",
                            $"README line {i + 1}: the marker must stand right above a ```csharp block");
                int end = Array.FindIndex(lines, i + 2, l => l.Trim() == "```");
                Assert.True(end > 0, $"README line {i + 1}: the block is not closed");
                blocks.Add((marker.Groups[1].Value, string.Join("\n", lines[(i + 2)..end]), i + 1));
            }
            return blocks;
        }

        [Fact]
        public void TheReadmeQuotesTheGuideExactly()
        {
            var regions = Regions(Path.Combine(Root(), "managed", "examples", "Guide"));
            foreach (var (name, code) in Regions(Path.Combine(Root(), "managed", "examples", "QuickStart")))
            {
                Assert.True(regions.TryAdd(name, code), $"region {name} defined twice");
            }
            Assert.NotEmpty(regions);
            var blocks = Blocks(File.ReadAllText(Path.Combine(Root(), "README.md")));
            foreach (var (name, code, line) in blocks)
            {
                Assert.True(regions.TryGetValue(name, out string region), $"README line {line}: no region \"guide: {name}\"");
                Assert.True(region == code, $"README line {line}: the block differs from region \"{name}\"; " +
                                            $"first difference at character {FirstDifference(region, code)}");
            }
            // Once the guide is in the README, all of it is.
            if (blocks.Count > 0)
            {
                Assert.Empty(regions.Keys.Except(blocks.Select(b => b.Name)));
            }
        }

        [Fact]
        public void MarkedBlocksAreFoundAndMismatchesShow()
        {
            string markdown = "text\n<!-- guide: a -->\n```csharp\nint x = 1;\n\nx++;\n```\n```csharp\nunmarked\n```\n";
            var block = Assert.Single(Blocks(markdown));
            Assert.Equal(("a", "int x = 1;\n\nx++;", 2), block);
            Assert.Throws<Xunit.Sdk.TrueException>(() => Blocks("<!-- guide: a -->\ntext\n```csharp\n```\n"));
        }

        [Fact]
        public void TheGuideRunsOnTheEmulator()
        {
            string pictures = Path.Combine(Path.GetTempPath(), $"velarion-guide-{Environment.ProcessId}");
            Directory.CreateDirectory(pictures);
            try
            {
                Guide.Program.Run(Path.Combine(Root(), "samples", "hardware"), pictures);
                Assert.True(new FileInfo(Path.Combine(pictures, "guide-field.png")).Length > 10_000);
                Assert.True(new FileInfo(Path.Combine(pictures, "guide-palm-path.png")).Length > 10_000);
                Assert.True(new FileInfo(Path.Combine(pictures, "guide-palm-field.png")).Length > 10_000);
                using var library = new VelarionLibrary();
                Assert.Equal(2, library.DeviceCount);  // the built-in arrays are back
            }
            finally
            {
                Directory.Delete(pictures, true);
            }
        }

        private static int FirstDifference(string a, string b)
        {
            int n = Math.Min(a.Length, b.Length);
            for (int i = 0; i < n; ++i)
            {
                if (a[i] != b[i]) return i;
            }
            return n;
        }
    }
}
