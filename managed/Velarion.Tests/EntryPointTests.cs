using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using Xunit;

namespace Velarion.Tests
{
    // The binding and the native library agree name for name, and each entry
    // point belongs to the interop module its listing section says. The public
    // layer's own imports (values passed by pointer) name entry points the
    // generated ones import too.
    public class EntryPointTests
    {
        private static readonly string[] Modules =
            { "velarion", "velarion_amplitudemodulation", "velarion_timepointstreaming" };

        private static Type PInvokeClass(string module) =>
            typeof(NVector3).Assembly.GetType($"Velarion.Raw.{module}PINVOKE", throwOnError: true);

        // The PINVOKE class and its nested helpers (the registration imports
        // live in the nested exception and string helpers).
        private static IEnumerable<Type> WithNested(Type type) =>
            new[] { type }.Concat(type.GetNestedTypes(BindingFlags.Public | BindingFlags.NonPublic).SelectMany(WithNested));

        private static IEnumerable<(string Module, string EntryPoint)> ImportedEntryPoints() =>
            from module in Modules
            from type in WithNested(PInvokeClass(module))
            from method in type.GetMethods(BindingFlags.Static | BindingFlags.Public | BindingFlags.NonPublic | BindingFlags.DeclaredOnly)
            let import = method.GetCustomAttribute<DllImportAttribute>()
            where import != null
            select (module, import.EntryPoint ?? method.Name);

        // Every import of the assembly, generated or hand-written.
        private static IEnumerable<(string Module, string EntryPoint)> AllImports() =>
            from type in typeof(NVector3).Assembly.GetTypes()
            from method in type.GetMethods(BindingFlags.Static | BindingFlags.Public | BindingFlags.NonPublic | BindingFlags.DeclaredOnly)
            let import = method.GetCustomAttribute<DllImportAttribute>()
            where import != null
            select (type.FullName, import.EntryPoint ?? method.Name);

        [Fact]
        public void EveryImportedEntryPointResolvesInTheInteropLibrary()
        {
            var library = NativeLibrary.Load("VelarionCSharp", typeof(NVector3).Assembly, null);
            var missing = AllImports()
                .Where(e => !NativeLibrary.TryGetExport(library, e.EntryPoint, out _))
                .Select(e => e.EntryPoint)
                .ToList();
            Assert.True(missing.Count == 0, "not exported: " + string.Join(", ", missing));
        }

        [Fact]
        public void EveryListedNameIsImportedByItsOwnModule()
        {
            var imported = ImportedEntryPoints().ToLookup(e => e.EntryPoint, e => e.Module);
            var problems = new List<string>();
            foreach (var module in Modules)
            {
                foreach (var name in ExportListing.Sections[module])
                {
                    var modules = imported[name].ToList();
                    if (modules.Count == 0) problems.Add($"{name}: imported by no generated entry point");
                    else if (!modules.Contains(module)) problems.Add($"{name}: listed under {module}, imported by {string.Join("/", modules)}");
                }
            }
            Assert.True(problems.Count == 0, string.Join("\n", problems));
        }

        [Fact]
        public void EveryGeneratedEntryPointIsListedUnderItsModule()
        {
            var unlisted = ImportedEntryPoints()
                .Where(e => !ExportListing.Sections[e.Module].Contains(e.EntryPoint))
                .Select(e => $"{e.EntryPoint} ({e.Module})")
                .ToList();
            Assert.True(unlisted.Count == 0, "not in the listing: " + string.Join(", ", unlisted));
        }
    }
}
