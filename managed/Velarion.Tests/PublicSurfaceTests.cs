using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Xml.Linq;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using Velarion.Extensions.Logging;
using Velarion.Sensations;
using Xunit;

namespace Velarion.Tests
{
    // What a user of the packages sees in IntelliSense: .NET names, and
    // documentation on every public (or protected) type and member of every
    // assembly shipped.
    public class PublicSurfaceTests
    {
        private static readonly Assembly[] Shipped =
        {
            typeof(NVector3).Assembly, typeof(EmulatedField).Assembly, typeof(FieldPlots).Assembly,
            typeof(VelarionLoggingExtensions).Assembly, typeof(SensationPlayer).Assembly,
        };

        private static IEnumerable<Type> Types => Shipped.SelectMany(a => a.GetExportedTypes());

        private static IEnumerable<MemberInfo> PublicMembers(Type type) =>
            typeof(Delegate).IsAssignableFrom(type)
                ? Enumerable.Empty<MemberInfo>()
                : type.GetMembers(BindingFlags.Public | BindingFlags.NonPublic | BindingFlags.Instance | BindingFlags.Static |
                                  BindingFlags.DeclaredOnly)
                    .Where(Visible)
                    .Where(m => !(m is MethodInfo method && method.IsSpecialName && !method.Name.StartsWith("op_")))
                    .Where(m => !(m is Type))  // nested types come with the exported ones
                    .Where(m => !(type.IsEnum && m.Name == "value__"));

        // Public, or protected in a type one may derive from.
        private static bool Visible(MemberInfo member)
        {
            bool open = !member.DeclaringType.IsSealed;
            switch (member)
            {
                case FieldInfo f: return f.IsPublic || open && (f.IsFamily || f.IsFamilyOrAssembly);
                case MethodBase m: return m.IsPublic || open && (m.IsFamily || m.IsFamilyOrAssembly);
                case PropertyInfo p: return p.GetAccessors(true).Any(a => Visible(a));
                case EventInfo e: return Visible(e.AddMethod);
                default: return false;
            }
        }

        [Fact]
        public void EveryPublicTypeAndMemberIsDocumented()
        {
            var missing = new List<string>();
            foreach (Assembly assembly in Shipped)
            {
                string path = Path.ChangeExtension(assembly.Location, ".xml");
                Assert.True(File.Exists(path), $"no documentation file beside {assembly.GetName().Name}");
                var documented = new HashSet<string>(
                    XDocument.Load(path).Descendants("member").Select(m => (string)m.Attribute("name")));
                var types = assembly.GetExportedTypes();
                missing.AddRange(types.Select(DocId)
                                     .Concat(types.SelectMany(t => PublicMembers(t).Select(DocId)))
                                     .Where(id => !documented.Contains(id)));
            }
            Assert.True(missing.Count == 0, "undocumented:\n" + string.Join("\n", missing));
        }

        // In the core assembly every parameter and every return value is described too.
        [Fact]
        public void EveryParameterAndReturnValueOfTheCoreIsDescribed()
        {
            Assembly core = typeof(NVector3).Assembly;
            var docs = XDocument.Load(Path.ChangeExtension(core.Location, ".xml")).Descendants("member")
                .ToDictionary(m => (string)m.Attribute("name"));
            var missing = new List<string>();
            foreach (Type type in core.GetExportedTypes().Where(t => !typeof(Delegate).IsAssignableFrom(t)))
            {
                foreach (MethodBase method in PublicMembers(type).OfType<MethodBase>())
                {
                    if (!docs.TryGetValue(DocId(method), out XElement doc)) continue;  // reported by the test above
                    if (doc.Element("inheritdoc") != null) continue;
                    var described = new HashSet<string>(doc.Elements("param").Select(p => (string)p.Attribute("name")));
                    missing.AddRange(method.GetParameters().Where(p => !described.Contains(p.Name))
                                           .Select(p => $"{DocId(method)}: <param name=\"{p.Name}\">"));
                    if (method is MethodInfo m && m.ReturnType != typeof(void) && doc.Element("returns") == null)
                        missing.Add($"{DocId(method)}: <returns>");
                }
            }
            Assert.True(missing.Count == 0, "undescribed:\n" + string.Join("\n", missing));
        }

        [Fact]
        public void NamesFollowTheDotNetGuidelines()
        {
            static bool Odd(string name) => name.Contains('_') || !char.IsUpper(name[0]);

            var oddTypes = Types.Where(t => Odd(t.Name.Split('`')[0])).Select(t => t.FullName);
            var oddMembers = Types.SelectMany(t => PublicMembers(t).Select(m => (Type: t, Member: m)))
                .Where(x => !(x.Member is ConstructorInfo) && !x.Member.Name.StartsWith("op_") && Odd(x.Member.Name))
                .Select(x => $"{x.Type.FullName}.{x.Member.Name}");
            var odd = oddTypes.Concat(oddMembers).ToList();
            Assert.True(odd.Count == 0, "not .NET names:\n" + string.Join("\n", odd));

            Assert.DoesNotContain(Types, t => t.Name.StartsWith("SWIGTYPE") || t.Namespace == "Velarion.Raw");
        }

        // The designed API of the core assembly, and nothing else: the raw layer
        // (SWIG's proxies, PINVOKE classes, directors) stays internal.
        private static readonly string[] Designed =
        {
            "AmplitudeModulationControlPoint", "AmplitudeModulationEmitter", "Alignment", "DelegateEmissionCallback",
            "DelegateLoggingCallback", "DeviceConnectionChangedEventArgs", "DeviceFeatures", "DeviceInfo", "DeviceLogLevel",
            "DeviceSelectionMode", "DeviceWatcher",
            "EmissionCallback", "EmissionControlPointRecord", "EmissionHandler", "EmissionInterval", "Emitter",
            "EulerOrder", "HostDuration", "HostTime", "InterfaceVersion", "LogHandler", "LoggingExternalInterface",
            "Matrix3x3", "Matrix4x4", "NVector3", "Quaternion", "ReEmitPoints", "TimePointStreamingEmitter",
            "Transducer", "Transform", "VelarionLibrary", "VersionInfo",
        };

        [Fact]
        public void TheCoreAssemblyShowsOnlyTheDesignedApi()
        {
            var shown = typeof(NVector3).Assembly.GetExportedTypes().Select(t => t.FullName).OrderBy(n => n).ToList();
            Assert.Equal(Designed.Select(n => "Velarion." + n).OrderBy(n => n), shown);

            // Counts, indices and levels are int or enums: uint only for the
            // host time's fraction and the record's carried bits.
            var allowed = new HashSet<string> { "Fraction", "CarriedValue" };
            var unsigned = Types.Where(t => t.Assembly == typeof(NVector3).Assembly)
                .SelectMany(t => PublicMembers(t).Select(m => (Type: t, Member: m)))
                .Where(x => !allowed.Contains(x.Member.Name) && UsesUnsigned(x.Member))
                .Select(x => $"{x.Type.Name}.{x.Member.Name}")
                .ToList();
            Assert.True(unsigned.Count == 0, "unsigned counts or levels:\n" + string.Join("\n", unsigned));
        }

        private static bool UsesUnsigned(MemberInfo member)
        {
            static bool U(Type t) => t == typeof(uint) || t == typeof(ulong);
            return member switch
            {
                FieldInfo f => U(f.FieldType),
                PropertyInfo p => U(p.PropertyType),
                MethodInfo m => U(m.ReturnType) || m.GetParameters().Any(p => U(p.ParameterType) && p.Name != "fraction"),
                ConstructorInfo c => c.GetParameters().Any(p => U(p.ParameterType) && p.Name != "fraction"),
                _ => false,
            };
        }

        // `a.B.C = v` must never write to a copy that is thrown away: a property
        // that hands out an object of this API hands out a handle or an
        // immutable snapshot, never a mutable copy (mutable values are structs,
        // for which C# refuses such an assignment).
        [Fact]
        public void NoPropertyHandsOutAMutableCopy()
        {
            // Handles (disposable, or belonging to one) are shared, not copied.
            var handles = new HashSet<Type> { typeof(LoggingExternalInterface) };
            handles.UnionWith(Types.Where(t => typeof(IDisposable).IsAssignableFrom(t)));
            static bool Mutable(Type t) =>
                t.GetProperties(BindingFlags.Public | BindingFlags.Instance).Any(p => p.SetMethod?.IsPublic == true)
                || t.GetFields(BindingFlags.Public | BindingFlags.Instance).Any(f => !f.IsInitOnly);
            var copies = Types
                .SelectMany(t => t.GetProperties(BindingFlags.Public | BindingFlags.Instance | BindingFlags.Static))
                .Where(p => p.PropertyType.IsClass && Shipped.Contains(p.PropertyType.Assembly)
                            && !handles.Contains(p.PropertyType) && Mutable(p.PropertyType))
                .Select(p => $"{p.DeclaringType.Name}.{p.Name}")
                .ToList();
            Assert.True(copies.Count == 0, "properties handing out mutable objects:\n" + string.Join("\n", copies));
        }

        // The documentation ID the compiler writes for a member.
        private static string DocId(MemberInfo member)
        {
            switch (member)
            {
                case Type type: return "T:" + TypeName(type);
                case FieldInfo field: return $"F:{TypeName(field.DeclaringType)}.{field.Name}";
                case EventInfo @event: return $"E:{TypeName(@event.DeclaringType)}.{@event.Name}";
                case PropertyInfo property:
                    return $"P:{TypeName(property.DeclaringType)}.{property.Name}{Parameters(property.GetIndexParameters())}";
                case ConstructorInfo constructor:
                    return $"M:{TypeName(constructor.DeclaringType)}.{(constructor.IsStatic ? "#cctor" : "#ctor")}" +
                           Parameters(constructor.GetParameters());
                case MethodInfo method:
                    string generic = method.IsGenericMethodDefinition ? "``" + method.GetGenericArguments().Length : "";
                    string id = $"M:{TypeName(method.DeclaringType)}.{method.Name}{generic}{Parameters(method.GetParameters())}";
                    return method.Name == "op_Explicit" || method.Name == "op_Implicit" ? id + "~" + TypeName(method.ReturnType) : id;
                default: return $"?:{member.DeclaringType?.Name}.{member.Name}";
            }
        }

        private static string Parameters(ParameterInfo[] parameters) =>
            parameters.Length == 0 ? "" : "(" + string.Join(",", parameters.Select(p => TypeName(p.ParameterType))) + ")";

        private static string TypeName(Type type)
        {
            if (type.IsByRef) return TypeName(type.GetElementType()) + "@";
            if (type.IsPointer) return TypeName(type.GetElementType()) + "*";
            if (type.IsArray) return TypeName(type.GetElementType()) + "[]";
            if (type.IsGenericParameter)
            {
                return (type.DeclaringMethod != null ? "``" : "`") + type.GenericParameterPosition;
            }
            if (type.IsGenericTypeDefinition) return type.FullName.Replace('+', '.');
            if (type.IsGenericType)
            {
                string name = type.GetGenericTypeDefinition().FullName;
                name = name.Substring(0, name.IndexOf('`'));
                return name + "{" + string.Join(",", type.GetGenericArguments().Select(TypeName)) + "}";
            }
            return type.FullName.Replace('+', '.');
        }
    }
}
