using System;
using System.Collections.Generic;
using System.Formats.Tar;
using System.IO;
using System.IO.Compression;
using System.Linq;
using System.Reflection.Metadata;
using System.Reflection.PortableExecutable;
using System.Security.Cryptography;
using System.Text;
using System.Text.Encodings.Web;
using System.Text.Json;
using System.Text.Json.Nodes;
using System.Text.RegularExpressions;
using System.Xml.Linq;

namespace Velarion.UnityPackages
{
    // The Unity packages: which NuGet package gives each one's netstandard2.1
    // assembly and which staged native libraries (build/runtimes/<rid>/native)
    // it carries.
    internal sealed record Definition(string Name, string Assembly, string[] Natives, bool Preload);

    internal static class Program
    {
        internal static readonly Definition[] Packages =
        {
            new("com.velarioncsharp.velarionsharp", "VelarionSharp",
                new[] { "win-x64/native/VelarionCSharp.dll", "linux-x64/native/libVelarionCSharp.so" },
                Preload: false),
            // The device library loads at the editor's start, so that the interop
            // library (in another package's folder) finds it already loaded.
            new("com.velarioncsharp.velarionsharp.emulator", "VelarionSharp.Emulator",
                new[] { "win-x64/native/Velarion.dll", "linux-x64/native/libVelarion.so" },
                Preload: true),
            // Managed only: patterns rendered on the binding's streaming emitter.
            new("com.velarioncsharp.velarionsharp.sensations", "VelarionSharp.Sensations",
                Array.Empty<string>(), Preload: false),
        };

        internal const string PluginFolder = "Runtime/Plugins/x86_64";

        private static int Main(string[] args)
        {
            try
            {
                if (args.Length == 6 && args[0] == "pack")
                {
                    foreach (var tarball in Packer.Pack(templates: args[1], feed: args[2], runtimes: args[3], version: args[4], output: args[5]))
                    {
                        Console.WriteLine($"unity: {tarball}");
                    }
                    return 0;
                }
                if (args.Length >= 2 && args[0] == "check")
                {
                    var problems = Checker.Check(args.Skip(1).ToArray());
                    foreach (string problem in problems) Console.Error.WriteLine($"unity: {problem}");
                    if (problems.Count == 0) Console.WriteLine($"unity: {args.Length - 1} packages checked");
                    return problems.Count == 0 ? 0 : 1;
                }
                Console.Error.WriteLine("usage: UnityPackages pack <templates> <feed> <runtimes> <version> <output>\n" +
                                        "       UnityPackages check <package.tgz>...");
                return 2;
            }
            catch (Exception e) when (e is IOException || e is InvalidDataException || e is JsonException || e is UnauthorizedAccessException)
            {
                Console.Error.WriteLine($"unity: {e.Message}");
                return 1;
            }
        }

        /// <summary>A file's or folder's GUID: stable from release to release, unique across packages.</summary>
        internal static string Guid(string package, string path) =>
            Convert.ToHexStringLower(MD5.HashData(Encoding.UTF8.GetBytes($"{package}/{path}")));

        /// <summary>Unity's importer skips names ending in ~ or starting with a dot, and everything under them.</summary>
        internal static bool Ignored(string path) =>
            path.Split('/').Any(part => part.EndsWith('~') || part.StartsWith('.'));
    }

    internal static class Packer
    {
        private static readonly DateTimeOffset Stamp = new DateTimeOffset(2000, 1, 1, 0, 0, 0, TimeSpan.Zero);

        internal static IEnumerable<string> Pack(string templates, string feed, string runtimes, string version, string output)
        {
            var made = new List<string>();
            foreach (var definition in Program.Packages)
            {
                var files = new SortedDictionary<string, byte[]>(StringComparer.Ordinal);
                string template = Path.Combine(templates, definition.Name);
                foreach (string file in Directory.GetFiles(template, "*", SearchOption.AllDirectories))
                {
                    string relative = Path.GetRelativePath(template, file).Replace('\\', '/');
                    files[relative] = relative == "package.json" ? Manifest(File.ReadAllText(file), version) : File.ReadAllBytes(file);
                }

                string nupkg = Path.Combine(feed, $"{definition.Assembly}.{version}.nupkg");
                using (var zip = ZipFile.OpenRead(nupkg))
                {
                    var assembly = zip.GetEntry($"lib/netstandard2.1/{definition.Assembly}.dll");
                    var documentation = zip.GetEntry($"lib/netstandard2.1/{definition.Assembly}.xml");
                    if (assembly == null || documentation == null)
                    {
                        throw new IOException($"{nupkg} has no netstandard2.1 {definition.Assembly}.dll with its XML documentation");
                    }
                    files[$"Runtime/{definition.Assembly}.dll"] = Read(assembly);
                    files[$"Runtime/{definition.Assembly}.xml"] = Read(documentation);
                }
                foreach (string native in definition.Natives)
                {
                    files[$"{Program.PluginFolder}/{Path.GetFileName(native)}"] = File.ReadAllBytes(Path.Combine(runtimes, native));
                }

                // A .meta beside every file and folder the importer sees.
                var folders = files.Keys.SelectMany(Ancestors).Distinct().ToList();
                foreach (string folder in folders.Where(f => !Program.Ignored(f)))
                {
                    files[folder + ".meta"] = Encoding.UTF8.GetBytes(Metas.Folder(Program.Guid(definition.Name, folder)));
                }
                foreach (string file in files.Keys.Where(f => !f.EndsWith(".meta") && !Program.Ignored(f)).ToList())
                {
                    files[file + ".meta"] = Encoding.UTF8.GetBytes(Metas.For(definition, file, Program.Guid(definition.Name, file)));
                }

                string tarball = Path.Combine(output, $"{definition.Name}-{version}.tgz");
                Write(tarball, files);
                made.Add(tarball);
            }
            return made;
        }

        private static byte[] Read(ZipArchiveEntry entry)
        {
            using var stream = entry.Open();
            using var copy = new MemoryStream();
            stream.CopyTo(copy);
            return copy.ToArray();
        }

        private static IEnumerable<string> Ancestors(string path)
        {
            for (int slash = path.LastIndexOf('/'); slash > 0; slash = path.LastIndexOf('/', slash - 1))
            {
                yield return path.Substring(0, slash);
            }
        }

        // The version of the build, also for the packages of this project it depends on.
        private static byte[] Manifest(string text, string version)
        {
            var manifest = JsonNode.Parse(text).AsObject();
            manifest["version"] = version;
            if (manifest["dependencies"] is JsonObject dependencies)
            {
                foreach (string name in dependencies.Select(p => p.Key).Where(n => Program.Packages.Any(p => p.Name == n)).ToList())
                {
                    dependencies[name] = version;
                }
            }
            return Encoding.UTF8.GetBytes(manifest.ToJsonString(new JsonSerializerOptions { WriteIndented = true, Encoder = JavaScriptEncoder.UnsafeRelaxedJsonEscaping }) + "\n");
        }

        // npm's layout (entries under package/), byte for byte the same from the same inputs.
        private static void Write(string tarball, SortedDictionary<string, byte[]> files)
        {
            using var file = File.Create(tarball);
            using var gzip = new GZipStream(file, CompressionLevel.SmallestSize);
            using var tar = new TarWriter(gzip, TarEntryFormat.Ustar, leaveOpen: false);
            foreach (var (path, content) in files)
            {
                var entry = new UstarTarEntry(TarEntryType.RegularFile, "package/" + path)
                {
                    DataStream = new MemoryStream(content),
                    ModificationTime = Stamp,
                    Mode = UnixFileMode.UserRead | UnixFileMode.UserWrite | UnixFileMode.GroupRead | UnixFileMode.OtherRead,
                };
                tar.WriteEntry(entry);
            }
        }
    }

    // Unity's .meta files: importer settings keyed by the asset's GUID.
    internal static class Metas
    {
        private const string Tail = "  userData: \n  assetBundleName: \n  assetBundleVariant: \n";

        private static string Head(string guid) => $"fileFormatVersion: 2\nguid: {guid}\n";

        internal static string Folder(string guid) =>
            Head(guid) + "folderAsset: yes\nDefaultImporter:\n  externalObjects: {}\n" + Tail;

        internal static string For(Definition package, string path, string guid)
        {
            string name = Path.GetFileName(path);
            if (path.StartsWith(Program.PluginFolder + "/")) return NativePlugin(guid, name.EndsWith(".dll") ? "Windows" : "Linux", package.Preload);
            if (name.EndsWith(".dll")) return ManagedPlugin(guid);
            if (path == "package.json") return Head(guid) + "PackageManifestImporter:\n  externalObjects: {}\n" + Tail;
            if (name.EndsWith(".md") || name.EndsWith(".xml") || name.EndsWith(".txt") || name.EndsWith(".json"))
            {
                return Head(guid) + "TextScriptImporter:\n  externalObjects: {}\n" + Tail;
            }
            return Head(guid) + "DefaultImporter:\n  externalObjects: {}\n" + Tail;
        }

        private static string Plugin(string guid, bool preload, bool overridable, IEnumerable<(string Platform, bool Enabled, string[] Settings)> platforms)
        {
            var text = new StringBuilder(Head(guid));
            text.Append("PluginImporter:\n  externalObjects: {}\n  serializedVersion: 2\n  iconMap: {}\n  executionOrder: {}\n")
                .Append("  defineConstraints: []\n")
                .Append($"  isPreloaded: {(preload ? 1 : 0)}\n  isOverridable: {(overridable ? 1 : 0)}\n")
                .Append("  isExplicitlyReferenced: 0\n  validateReferences: 1\n  platformData:\n");
            foreach (var (platform, enabled, settings) in platforms)
            {
                text.Append($"  - first:\n      {platform}\n    second:\n      enabled: {(enabled ? 1 : 0)}\n");
                text.Append(settings.Length == 0 ? "      settings: {}\n" : "      settings:\n" + string.Concat(settings.Select(s => $"        {s}\n")));
            }
            return text.Append(Tail).ToString();
        }

        // The netstandard2.1 assembly: every platform, referenced by scripts without asking.
        private static string ManagedPlugin(string guid) => Plugin(guid, preload: false, overridable: false, new[]
        {
            ("Any: ", true, Array.Empty<string>()),
            ("Editor: Editor", false, new[] { "DefaultValueInitialized: true" }),
        });

        internal static readonly string[] Standalones = { "Linux64", "OSXUniversal", "Win", "Win64" };

        // A native library: the editor and the standalone player of its own OS on x86_64, nothing else.
        private static string NativePlugin(string guid, string os, bool preload)
        {
            string own = os == "Windows" ? "Win64" : "Linux64";
            var platforms = new List<(string, bool, string[])>
            {
                (": Any", false, new[] { "Exclude Editor: 0" }
                    .Concat(Standalones.Select(s => $"Exclude {s}: {(s == own ? 0 : 1)}")).ToArray()),
                ("Any: ", false, Array.Empty<string>()),
                ("Editor: Editor", true, new[] { "CPU: x86_64", "DefaultValueInitialized: true", $"OS: {os}" }),
            };
            platforms.AddRange(Standalones.Select(s => ($"Standalone: {s}", s == own, new[] { s == own ? "CPU: x86_64" : "CPU: None" })));
            return Plugin(guid, preload, overridable: true, platforms);
        }
    }

    internal static class Checker
    {
        private static readonly Regex Name = new Regex(@"^[a-z0-9][a-z0-9._-]{0,213}$");
        private static readonly Regex SemVer = new Regex(@"^(0|[1-9]\d*)\.(0|[1-9]\d*)\.(0|[1-9]\d*)(-[0-9A-Za-z.-]+)?(\+[0-9A-Za-z.-]+)?$");
        private static readonly Regex UnityVersion = new Regex(@"^\d{4}\.\d+$");
        private static readonly Regex MetaHead = new Regex(@"\AfileFormatVersion: 2\nguid: ([0-9a-f]{32})\n");

        internal static List<string> Check(string[] tarballs)
        {
            var problems = new List<string>();
            var guids = new Dictionary<string, string>();
            foreach (string tarball in tarballs)
            {
                var files = Read(tarball, problems);
                void Problem(string text) => problems.Add($"{Path.GetFileName(tarball)}: {text}");
                if (!files.TryGetValue("package.json", out string manifestText))
                {
                    Problem("no package.json");
                    continue;
                }
                string name = CheckManifest(manifestText, files, Problem);
                if (name == null) continue;
                var definition = Program.Packages.FirstOrDefault(p => p.Name == name);
                if (definition == null)
                {
                    Problem($"{name} is not one of this project's packages");
                    continue;
                }

                // Every asset and folder has its .meta and every .meta its asset, none under ignored folders.
                var folders = files.Keys.SelectMany(f => Enumerable.Range(1, f.Count(c => c == '/')).Select(n => string.Join('/', f.Split('/').Take(n))))
                    .ToHashSet();
                var assets = files.Keys.Where(f => !f.EndsWith(".meta")).Concat(folders).Where(f => !Program.Ignored(f)).ToHashSet();
                foreach (string asset in assets.Where(a => !files.ContainsKey(a + ".meta"))) Problem($"{asset} has no .meta");
                foreach (string meta in files.Keys.Where(f => f.EndsWith(".meta")))
                {
                    string asset = meta.Substring(0, meta.Length - 5);
                    if (Program.Ignored(meta)) Problem($"{meta} is in a folder Unity ignores");
                    else if (!assets.Contains(asset)) Problem($"{meta} has no asset");
                    var head = MetaHead.Match(files[meta]);
                    if (!head.Success)
                    {
                        Problem($"{meta} does not start with fileFormatVersion 2 and a GUID");
                        continue;
                    }
                    string guid = head.Groups[1].Value;
                    if (guid != Program.Guid(name, asset)) Problem($"{meta} has GUID {guid}, not the stable one of its path");
                    if (guids.TryGetValue(guid, out string other)) Problem($"{meta} has the GUID of {other}");
                    else guids[guid] = $"{name}/{meta}";
                    bool isFolder = folders.Contains(asset);
                    if (isFolder != files[meta].Contains("\nfolderAsset: yes\n")) Problem($"{meta}: folderAsset does not match");
                }

                CheckPlugins(definition, files, Problem);
                CheckDependencies(definition, manifestText, files, Problem);
                CheckLinker(definition, files, Problem);
            }
            return problems;
        }

        private static Dictionary<string, string> Read(string tarball, List<string> problems)
        {
            var files = new Dictionary<string, string>(StringComparer.Ordinal);
            using var file = File.OpenRead(tarball);
            using var gzip = new GZipStream(file, CompressionMode.Decompress);
            using var tar = new TarReader(gzip);
            for (TarEntry entry; (entry = tar.GetNextEntry()) != null;)
            {
                if (entry.EntryType == TarEntryType.Directory) continue;
                if (entry.EntryType != TarEntryType.RegularFile && entry.EntryType != TarEntryType.V7RegularFile)
                {
                    problems.Add($"{Path.GetFileName(tarball)}: {entry.Name} is not a regular file");
                    continue;
                }
                if (!entry.Name.StartsWith("package/") || entry.Name.Contains("/../") || entry.Name.Contains('\\'))
                {
                    problems.Add($"{Path.GetFileName(tarball)}: {entry.Name} is not under package/");
                    continue;
                }
                using var reader = new StreamReader(entry.DataStream ?? Stream.Null, Encoding.Latin1);
                files[entry.Name.Substring("package/".Length)] = reader.ReadToEnd();
            }
            return files;
        }

        private static string CheckManifest(string text, Dictionary<string, string> files, Action<string> problem)
        {
            JsonObject manifest;
            try
            {
                manifest = JsonNode.Parse(text)?.AsObject();
            }
            catch (Exception e) when (e is JsonException || e is InvalidOperationException)
            {
                problem($"package.json is not a JSON object: {e.Message}");
                return null;
            }
            string Text(string key)
            {
                string value = manifest[key] is JsonValue v && v.TryGetValue(out string s) ? s : null;
                if (string.IsNullOrWhiteSpace(value)) problem($"package.json has no \"{key}\"");
                return value;
            }
            string name = Text("name"), version = Text("version"), unity = Text("unity");
            Text("displayName");
            Text("description");
            if (name != null && !Name.IsMatch(name)) problem($"package name \"{name}\" is not lowercase a-z 0-9 - _ . (at most 214)");
            if (version != null && !SemVer.IsMatch(version)) problem($"version \"{version}\" is not SemVer");
            if (unity != null && !UnityVersion.IsMatch(unity)) problem($"unity \"{unity}\" is not a version like 2021.3");
            if (manifest["dependencies"] is JsonObject dependencies)
            {
                foreach (var (dependency, value) in dependencies)
                {
                    if (!Name.IsMatch(dependency) || !(value is JsonValue v && v.TryGetValue(out string s) && SemVer.IsMatch(s)))
                    {
                        problem($"dependency {dependency}: {value}");
                    }
                }
            }
            if (manifest["samples"] is JsonArray samples)
            {
                foreach (var sample in samples)
                {
                    string path = sample?["path"]?.GetValue<string>();
                    if (sample?["displayName"] == null || sample["description"] == null || path == null ||
                        !path.StartsWith("Samples~/") || !files.Keys.Any(f => f.StartsWith(path + "/")))
                    {
                        problem($"sample {sample?.ToJsonString()} names no folder of Samples~ with files");
                    }
                }
            }
            return name;
        }

        // Each native library: the editor and the player of its own OS on x86_64 only.
        private static void CheckPlugins(Definition definition, Dictionary<string, string> files, Action<string> problem)
        {
            var expected = definition.Natives.Select(n => $"{Program.PluginFolder}/{Path.GetFileName(n)}").ToHashSet();
            var natives = files.Keys.Where(f => f.EndsWith(".so") || (f.EndsWith(".dll") && f.StartsWith(Program.PluginFolder + "/"))).ToHashSet();
            if (!natives.SetEquals(expected)) problem($"native libraries {string.Join(", ", natives)}; expected {string.Join(", ", expected)}");
            foreach (string native in natives)
            {
                bool windows = native.EndsWith(".dll");
                if (!files[native].StartsWith(windows ? "MZ" : "\u007fELF", StringComparison.Ordinal)) problem($"{native} is not a {(windows ? "PE" : "ELF")} file");
                if (!files.TryGetValue(native + ".meta", out string meta)) continue;
                string own = windows ? "Win64" : "Linux64";
                var platforms = Platforms(meta);
                bool Enabled(string platform) => platforms.TryGetValue(platform, out var p) && p.Enabled;
                string Setting(string platform, string key) =>
                    platforms.TryGetValue(platform, out var p) && p.Settings.TryGetValue(key, out string v) ? v : null;
                if (Enabled("Any: ") || Enabled(": Any")) problem($"{native} is enabled on every platform");
                if (!Enabled("Editor: Editor") || Setting("Editor: Editor", "OS") != (windows ? "Windows" : "Linux") ||
                    Setting("Editor: Editor", "CPU") != "x86_64")
                {
                    problem($"{native} does not load in the {(windows ? "Windows" : "Linux")} x86_64 editor only");
                }
                foreach (string standalone in Metas.Standalones)
                {
                    string platform = $"Standalone: {standalone}";
                    bool wanted = standalone == own;
                    if (Enabled(platform) != wanted || Setting(platform, "CPU") != (wanted ? "x86_64" : "None"))
                    {
                        problem($"{native} is {(wanted ? "not enabled" : "enabled")} for {platform}");
                    }
                    if (Setting(": Any", $"Exclude {standalone}") != (wanted ? "0" : "1")) problem($"{native}: Exclude {standalone} is wrong");
                }
            }
            string assembly = $"Runtime/{definition.Assembly}.dll";
            if (!files.ContainsKey(assembly)) problem($"{assembly} is missing");
            if (files.TryGetValue(assembly + ".meta", out string managed))
            {
                if (!Platforms(managed).TryGetValue("Any: ", out var any) || !any.Enabled) problem($"{assembly} is not enabled on every platform");
                if (!managed.Contains("\n  isExplicitlyReferenced: 0\n")) problem($"{assembly} is not referenced by default");
                if (!files.ContainsKey($"Runtime/{definition.Assembly}.xml")) problem($"{assembly} has no XML documentation");
            }
        }

        // Unity resolves an assembly's references only within the packages
        // installed: each package whose assembly this one refers to must be a
        // dependency, at this package's own version (the packer writes them so).
        private static void CheckDependencies(Definition definition, string manifestText, Dictionary<string, string> files, Action<string> problem)
        {
            if (!files.TryGetValue($"Runtime/{definition.Assembly}.dll", out string image)) return;
            var manifest = JsonNode.Parse(manifestText).AsObject();
            string version = manifest["version"]?.ToString();
            var dependencies = manifest["dependencies"] as JsonObject;
            using var reader = new PEReader(new MemoryStream(Encoding.Latin1.GetBytes(image)));
            if (!reader.HasMetadata)
            {
                problem($"Runtime/{definition.Assembly}.dll is not a .NET assembly");
                return;
            }
            var metadata = reader.GetMetadataReader();
            foreach (var handle in metadata.AssemblyReferences)
            {
                string referenced = metadata.GetString(metadata.GetAssemblyReference(handle).Name);
                var provider = Program.Packages.FirstOrDefault(p => p.Assembly == referenced);
                if (provider != null && dependencies?[provider.Name]?.ToString() != version)
                {
                    problem($"{definition.Assembly} refers to {referenced}, but package.json does not depend on {provider.Name} {version}");
                }
            }
        }

        private static Dictionary<string, (bool Enabled, Dictionary<string, string> Settings)> Platforms(string meta)
        {
            var platforms = new Dictionary<string, (bool, Dictionary<string, string>)>();
            string[] lines = meta.Split('\n');
            for (int i = 0; i < lines.Length; ++i)
            {
                if (lines[i] != "  - first:") continue;
                string platform = lines[i + 1].Substring("      ".Length);
                bool enabled = lines[i + 3].Trim() == "enabled: 1";
                var settings = new Dictionary<string, string>();
                for (int j = i + 5; j < lines.Length && lines[j].StartsWith("        "); ++j)
                {
                    string[] pair = lines[j].Trim().Split(": ", 2);
                    settings[pair[0]] = pair.Length > 1 ? pair[1] : "";
                }
                platforms[platform] = (enabled, settings);
            }
            return platforms;
        }

        // IL2CPP's stripping keeps what link.xml names: every assembly of the package.
        private static void CheckLinker(Definition definition, Dictionary<string, string> files, Action<string> problem)
        {
            string path = files.Keys.FirstOrDefault(f => Path.GetFileName(f) == "link.xml");
            if (path == null)
            {
                problem("no link.xml");
                return;
            }
            try
            {
                var linker = XDocument.Parse(files[path]).Root;
                bool kept = linker?.Name == "linker" && linker.Elements("assembly")
                    .Any(a => (string)a.Attribute("fullname") == definition.Assembly && (string)a.Attribute("preserve") == "all");
                if (!kept) problem($"{path} does not preserve {definition.Assembly}");
            }
            catch (System.Xml.XmlException e)
            {
                problem($"{path}: {e.Message}");
            }
        }
    }
}
