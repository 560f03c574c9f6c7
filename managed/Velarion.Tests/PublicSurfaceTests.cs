using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Xml.Linq;
using Xunit;

namespace Velarion.Tests
{
    // What a user of the geometry, description and list classes sees in
    // IntelliSense: .NET names, and documentation on every public member.
    public class PublicSurfaceTests
    {
        private static readonly Type[] Surface =
        {
            typeof(NVector3), typeof(Quaternion), typeof(EulerOrder), typeof(Matrix3x3), typeof(Matrix4x4),
            typeof(Transform), typeof(HostDuration), typeof(HostTimePoint), typeof(Transducer),
            typeof(TransducerContainer), typeof(Alignment), typeof(DeviceInfo), typeof(DeviceInfoList),
            typeof(StringList), typeof(VersionInfo), typeof(InterfaceVersion), typeof(DeviceFeatures),
            typeof(DeviceSelectionMode),
        };

        private static IEnumerable<MemberInfo> PublicMembers(Type type) =>
            type.GetMembers(BindingFlags.Public | BindingFlags.Instance | BindingFlags.Static | BindingFlags.DeclaredOnly)
                .Where(m => !(m is MethodInfo method && method.IsSpecialName && !method.Name.StartsWith("op_")))
                .Where(m => !(type.IsEnum && m.Name == "value__"));

        [Fact]
        public void EveryPublicMemberIsDocumented()
        {
            string path = Path.ChangeExtension(typeof(NVector3).Assembly.Location, ".xml");
            var documented = new HashSet<string>(
                XDocument.Load(path).Descendants("member").Select(m => (string)m.Attribute("name")));
            var missing = Surface.Select(DocId)
                .Concat(Surface.SelectMany(t => PublicMembers(t).Select(DocId)))
                .Where(id => !documented.Contains(id))
                .ToList();
            Assert.True(missing.Count == 0, "undocumented:\n" + string.Join("\n", missing));
        }

        [Fact]
        public void NamesFollowTheDotNetGuidelines()
        {
            var odd = Surface.SelectMany(t => PublicMembers(t).Select(m => (Type: t, Member: m)))
                .Where(x => !(x.Member is ConstructorInfo) && !x.Member.Name.StartsWith("op_"))
                .Where(x => x.Member.Name.Contains('_') || !char.IsUpper(x.Member.Name[0]))
                .Select(x => $"{x.Type.Name}.{x.Member.Name}")
                .ToList();
            Assert.True(odd.Count == 0, "not .NET names: " + string.Join(", ", odd));

            // Counts and indices are int; no raw pointer type is public.
            Assert.All(new[] { typeof(StringList), typeof(DeviceInfoList), typeof(TransducerContainer) },
                       t => Assert.Equal(typeof(int), t.GetProperty("Count").PropertyType));
            Assert.DoesNotContain(typeof(NVector3).Assembly.GetExportedTypes(), t => t.Name.StartsWith("SWIGTYPE"));
        }

        // The documentation ID the compiler writes for a member.
        private static string DocId(MemberInfo member)
        {
            switch (member)
            {
                case Type type: return "T:" + TypeName(type);
                case FieldInfo field: return $"F:{TypeName(field.DeclaringType)}.{field.Name}";
                case PropertyInfo property:
                    return $"P:{TypeName(property.DeclaringType)}.{property.Name}{Parameters(property.GetIndexParameters())}";
                case ConstructorInfo constructor:
                    return $"M:{TypeName(constructor.DeclaringType)}.#ctor{Parameters(constructor.GetParameters())}";
                case MethodInfo method:
                    string id = $"M:{TypeName(method.DeclaringType)}.{method.Name}{Parameters(method.GetParameters())}";
                    return method.Name == "op_Explicit" || method.Name == "op_Implicit" ? id + "~" + TypeName(method.ReturnType) : id;
                default: return $"?:{member.DeclaringType?.Name}.{member.Name}";
            }
        }

        private static string Parameters(ParameterInfo[] parameters) =>
            parameters.Length == 0 ? "" : "(" + string.Join(",", parameters.Select(p => TypeName(p.ParameterType))) + ")";

        private static string TypeName(Type type)
        {
            if (type.IsByRef) return TypeName(type.GetElementType()) + "@";
            if (type.IsArray) return TypeName(type.GetElementType()) + "[]";
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
