using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using Velarion.Interop;
using Xunit;

namespace Velarion.Tests
{
    // IL2CPP (Unity's players) compiles the binding ahead of time: it can call
    // from native code only static methods marked [MonoPInvokeCallback] with
    // their delegate type, and has no code generation at run time. Unity
    // itself is not available here, so these rules are checked on the
    // assembly (under Mono, on its netstandard2.1 build).
    public class Il2CppRulesTests
    {
        private static readonly Assembly Binding = typeof(VelarionLibrary).Assembly;

        private static IEnumerable<MethodInfo> Methods(Type type) =>
            type.GetMethods(BindingFlags.Static | BindingFlags.Instance | BindingFlags.Public | BindingFlags.NonPublic | BindingFlags.DeclaredOnly);

        [Fact]
        public void EveryNativeEntryIsStaticAndNamesADelegateOfItsOwnSignature()
        {
            var entries = Binding.GetTypes().SelectMany(Methods)
                .Select(m => (Method: m, Marked: m.GetCustomAttribute<MonoPInvokeCallbackAttribute>()))
                .Where(e => e.Marked != null)
                .ToList();
            // The modules' exception and string callbacks, and the directors' entries for every slot.
            Assert.True(entries.Count >= 15 + 4 * DirectorEntries.SlotCount, $"{entries.Count} entries");
            foreach (var (method, marked) in entries)
            {
                string name = $"{method.DeclaringType.Name}.{method.Name}";
                Assert.True(method.IsStatic, $"{name} is an instance method");
                Assert.True(typeof(Delegate).IsAssignableFrom(marked.Type), $"{name} names {marked.Type}, not a delegate type");
                MethodInfo invoke = marked.Type.GetMethod("Invoke");
                Assert.True(invoke.ReturnType == method.ReturnType &&
                            invoke.GetParameters().Select(p => p.ParameterType).SequenceEqual(method.GetParameters().Select(p => p.ParameterType)),
                            $"{name} does not have the signature of {marked.Type.Name}");
            }
        }

        [Fact]
        public void NothingGeneratesCodeAtRunTime()
        {
            // Every type and member the assembly refers to outside itself.
            Module module = Binding.ManifestModule;
            var types = Tokens(0x01000000, module.ResolveType).Select(t => t.FullName).ToList();
            var members = Tokens(0x0A000000, module.ResolveMember).Select(m => $"{m.DeclaringType?.FullName}.{m.Name}").ToList();
            Assert.True(types.Count > 50 && members.Count > 50, $"{types.Count} types, {members.Count} members referred to");

            string[] forbiddenNamespaces = { "System.Reflection.Emit.", "System.Linq.Expressions." };
            Assert.Empty(types.Where(t => forbiddenNamespaces.Any(t.StartsWith)));
            string[] forbiddenMembers =
            {
                "System.Runtime.InteropServices.Marshal.GetFunctionPointerForDelegate",
                "System.Type.MakeGenericType",
                "System.Reflection.MethodInfo.MakeGenericMethod",
                "System.Activator.CreateInstance",
            };
            Assert.Empty(members.Where(m => forbiddenMembers.Any(m.StartsWith)));
        }

        // Resolves tokens of one metadata table until the table ends. A
        // reference this runtime cannot resolve alone (a member of an open
        // generic type) is skipped: only outside types and members matter.
        private static List<T> Tokens<T>(int table, Func<int, T> resolve)
        {
            var resolved = new List<T>();
            for (int row = 1, failures = 0; failures < 64; ++row)
            {
                try
                {
                    resolved.Add(resolve(table | row));
                    failures = 0;
                }
                catch (Exception e) when (e is ArgumentException || e is TypeLoadException || e is MissingMemberException || e is BadImageFormatException)
                {
                    ++failures;
                }
            }
            return resolved;
        }
    }
}
