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

            // Counts and indices are int; no raw pointer type is public.
            Assert.All(new[] { typeof(StringList), typeof(DeviceInfoList), typeof(TransducerContainer) },
                       t => Assert.Equal(typeof(int), t.GetProperty("Count").PropertyType));
            Assert.DoesNotContain(Types, t => t.Name.StartsWith("SWIGTYPE"));
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
