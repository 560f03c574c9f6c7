using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;

namespace Velarion.Tests
{
    // The export listing (src/exports/VelarionCSharp.exports), copied beside the tests.
    internal static class ExportListing
    {
        public const string CxxSection = "c++";

        private static readonly Lazy<Dictionary<string, List<string>>> sections = new Lazy<Dictionary<string, List<string>>>(Read);

        // Names by section: the three interop modules and "c++".
        public static IReadOnlyDictionary<string, List<string>> Sections => sections.Value;

        public static IEnumerable<string> CNames =>
            Sections.Where(s => s.Key != CxxSection).SelectMany(s => s.Value);

        private static Dictionary<string, List<string>> Read()
        {
            var path = Path.Combine(AppContext.BaseDirectory, "VelarionCSharp.exports");
            var result = new Dictionary<string, List<string>>();
            List<string> current = null;
            foreach (var raw in File.ReadAllLines(path))
            {
                var hash = raw.IndexOf('#');
                var line = (hash >= 0 ? raw.Substring(0, hash) : raw).Trim();
                if (line.Length == 0) continue;
                if (line.StartsWith("[") && line.EndsWith("]"))
                {
                    current = new List<string>();
                    result[line.Substring(1, line.Length - 2)] = current;
                    continue;
                }
                if (current == null) throw new InvalidDataException($"name outside a section: {line}");
                current.Add(line);
            }
            return result;
        }
    }
}
