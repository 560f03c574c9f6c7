using System;
using System.Collections;
using System.Collections.Generic;
using System.Linq;
using System.Threading;

// The few xunit attributes, types and asserts the Mono subset uses, with xunit's
// meaning: Equal compares sequences element by element, Throws wants the
// exact exception type.
namespace Xunit
{
    [AttributeUsage(AttributeTargets.Method)]
    public class FactAttribute : Attribute
    {
        public string Skip { get; set; }
    }

    [AttributeUsage(AttributeTargets.Method)]
    public sealed class TheoryAttribute : FactAttribute { }

    // The rows of a theory: a public static property of the test's class.
    [AttributeUsage(AttributeTargets.Method)]
    public sealed class MemberDataAttribute : Attribute
    {
        public MemberDataAttribute(string memberName) => MemberName = memberName;
        public string MemberName { get; }
    }

    public class TheoryData<T> : IEnumerable<object[]>
    {
        private readonly List<T> rows;

        public TheoryData(IEnumerable<T> values) => rows = values.ToList();

        public IEnumerator<object[]> GetEnumerator() => rows.Select(row => new object[] { row }).GetEnumerator();

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();
    }

    public interface ITestOutputHelper
    {
        void WriteLine(string message);
    }

    [AttributeUsage(AttributeTargets.Class)]
    public sealed class CollectionAttribute : Attribute
    {
        public CollectionAttribute(string name) => Name = name;
        public string Name { get; }
    }

    [AttributeUsage(AttributeTargets.Class)]
    public sealed class CollectionDefinitionAttribute : Attribute
    {
        public CollectionDefinitionAttribute(string name) => Name = name;
        public string Name { get; }
    }

    public sealed class TestContext
    {
        public static TestContext Current { get; } = new TestContext();
        public CancellationToken CancellationToken => CancellationToken.None;
    }

    public sealed class AssertException : Exception
    {
        public AssertException(string message) : base(message) { }
    }

    public static class Assert
    {
        private static AssertException Fail(string what, object expected, object actual) =>
            new AssertException($"{what}\n  expected: {Show(expected)}\n  actual:   {Show(actual)}");

        private static string Show(object value) => value switch
        {
            null => "null",
            string s => $"\"{s}\"",
            IEnumerable e => "[" + string.Join(", ", e.Cast<object>().Select(Show)) + "]",
            _ => value.ToString(),
        };

        public static void True(bool condition, string message = null)
        {
            if (!condition) throw new AssertException(message ?? "expected true");
        }

        public static void False(bool condition, string message = null)
        {
            if (condition) throw new AssertException(message ?? "expected false");
        }

        public static void Fail(string message) => throw new AssertException(message);

        public static void NotEmpty(IEnumerable collection)
        {
            if (!collection.Cast<object>().Any()) throw new AssertException("Assert.NotEmpty: the collection is empty");
        }

        public static T IsType<T>(object value)
        {
            if (value == null || value.GetType() != typeof(T)) throw Fail("Assert.IsType", typeof(T), value?.GetType());
            return (T)value;
        }

        public static void Null(object value)
        {
            if (value != null) throw Fail("Assert.Null", null, value);
        }

        public static void Empty(IEnumerable collection)
        {
            if (collection.Cast<object>().Any()) throw Fail("Assert.Empty", "[]", collection);
        }

        public static void Equal<T>(T expected, T actual)
        {
            bool equal = expected is IEnumerable e && actual is IEnumerable a && !(expected is string)
                ? e.Cast<object>().SequenceEqual(a.Cast<object>())
                : EqualityComparer<T>.Default.Equals(expected, actual);
            if (!equal) throw Fail("Assert.Equal", expected, actual);
        }

        public static void Equal<T>(IEnumerable<T> expected, IEnumerable<T> actual)
        {
            if (expected == null || actual == null ? !ReferenceEquals(expected, actual) : !expected.SequenceEqual(actual))
            {
                throw Fail("Assert.Equal", expected, actual);
            }
        }

        public static void Equal(string expected, string actual)
        {
            if (expected != actual) throw Fail("Assert.Equal", expected, actual);
        }

        public static void NotEqual<T>(T expected, T actual)
        {
            if (EqualityComparer<T>.Default.Equals(expected, actual)) throw Fail("Assert.NotEqual", $"not {Show(expected)}", actual);
        }

        public static void Equal(float expected, float actual, float tolerance)
        {
            if (!(Math.Abs(expected - actual) <= tolerance)) throw Fail($"Assert.Equal within {tolerance}", expected, actual);
        }

        public static void Equal(double expected, double actual, double tolerance)
        {
            if (!(Math.Abs(expected - actual) <= tolerance)) throw Fail($"Assert.Equal within {tolerance}", expected, actual);
        }

        public static void Equal<T>(IEnumerable<T> expected, IEnumerable<T> actual, IEqualityComparer<T> comparer)
        {
            if (!expected.SequenceEqual(actual, comparer)) throw Fail("Assert.Equal", expected, actual);
        }

        public static void Equal(float expected, float actual, int precision) => Equal((double)expected, actual, precision);

        public static void Equal(double expected, double actual, int precision)
        {
            if (Math.Round(expected, precision) != Math.Round(actual, precision)) throw Fail($"Assert.Equal to {precision} digits", expected, actual);
        }

        public static void Contains(string expected, string actual)
        {
            if (actual == null || !actual.Contains(expected)) throw Fail("Assert.Contains", expected, actual);
        }

        public static void Contains<T>(T expected, IEnumerable<T> collection)
        {
            if (!collection.Contains(expected)) throw Fail("Assert.Contains", expected, collection);
        }

        public static void Contains<T>(IEnumerable<T> collection, Predicate<T> filter)
        {
            if (!collection.Any(item => filter(item))) throw Fail("Assert.Contains: no item matches", "a match", collection);
        }

        public static void DoesNotContain(string expected, string actual)
        {
            if (actual != null && actual.Contains(expected)) throw Fail("Assert.DoesNotContain", expected, actual);
        }

        public static void DoesNotContain<T>(T expected, IEnumerable<T> collection)
        {
            if (collection.Contains(expected)) throw Fail("Assert.DoesNotContain", expected, collection);
        }

        public static void DoesNotContain<T>(IEnumerable<T> collection, Predicate<T> filter)
        {
            if (collection.Any(item => filter(item))) throw Fail("Assert.DoesNotContain: an item matches", "no match", collection);
        }

        public static void StartsWith(string expected, string actual)
        {
            if (actual == null || !actual.StartsWith(expected, StringComparison.Ordinal)) throw Fail("Assert.StartsWith", expected, actual);
        }

        public static void All<T>(IEnumerable<T> collection, Action<T> action)
        {
            foreach (T item in collection) action(item);
        }

        public static T Single<T>(IEnumerable<T> collection, Predicate<T> filter)
        {
            var matches = collection.Where(item => filter(item)).ToList();
            if (matches.Count != 1) throw Fail("Assert.Single: matching items", 1, matches.Count);
            return matches[0];
        }

        public static T Single<T>(IEnumerable<T> collection)
        {
            var items = collection.ToList();
            if (items.Count != 1) throw Fail("Assert.Single: items", 1, items.Count);
            return items[0];
        }

        public static void InRange<T>(T actual, T low, T high) where T : IComparable<T>
        {
            if (actual.CompareTo(low) < 0 || actual.CompareTo(high) > 0) throw Fail("Assert.InRange", $"{low} to {high}", actual);
        }

        public static T Throws<T>(Action action) where T : Exception => Throws<T>(() => { action(); return null; });

        public static T Throws<T>(string paramName, Action action) where T : ArgumentException
        {
            T e = Throws<T>(action);
            if (e.ParamName != paramName) throw Fail("Assert.Throws: parameter", paramName, e.ParamName);
            return e;
        }

        public static T Throws<T>(string paramName, Func<object> action) where T : ArgumentException =>
            Throws<T>(paramName, () => { action(); });

        public static T Throws<T>(Func<object> action) where T : Exception
        {
            try
            {
                action();
            }
            catch (Exception e)
            {
                if (e.GetType() == typeof(T)) return (T)e;
                throw Fail("Assert.Throws", typeof(T), e.GetType() + ": " + e.Message);
            }
            throw Fail("Assert.Throws: nothing thrown", typeof(T), null);
        }
    }
}

namespace System.Threading.Tasks
{
    internal static class TaskWaiting
    {
        // Task.WaitAsync of .NET 6, as the lifetime tests use it.
        public static async Task<T> WaitAsync<T>(this Task<T> task, TimeSpan timeout, CancellationToken cancellation)
        {
            await ((Task)task).WaitAsync(timeout, cancellation).ConfigureAwait(false);
            return await task.ConfigureAwait(false);
        }

        public static async Task WaitAsync(this Task task, TimeSpan timeout, CancellationToken cancellation)
        {
            if (await Task.WhenAny(task, Task.Delay(timeout, cancellation)).ConfigureAwait(false) != task) throw new TimeoutException();
            await task.ConfigureAwait(false);
        }
    }
}

namespace System.Runtime.CompilerServices
{
    // LeakMode marks its switch with it; the runner calls the switch itself.
    [AttributeUsage(AttributeTargets.Method)]
    internal sealed class ModuleInitializerAttribute : Attribute { }
}
