// Internal plumbing written before the public surface was annotated.
#nullable disable
using System;
using System.Runtime.InteropServices;

namespace Velarion.Interop
{
    /// <summary>
    /// The string callback of the three modules. Native code hands it a narrow
    /// text and returns what it gives back to the managed caller unread: here,
    /// a handle to the string already decoded, so a string crosses with one
    /// decode and no native copy.
    /// </summary>
    internal static class NativeStrings
    {
        internal delegate IntPtr Make(IntPtr text);

        internal static readonly Make Entry = NativeCallbacks.Register<Make>(MakeString);

        [MonoPInvokeCallback(typeof(Make))]
        private static IntPtr MakeString(IntPtr text)
        {
            if (text == IntPtr.Zero) return IntPtr.Zero;
            return GCHandle.ToIntPtr(GCHandle.Alloc(Marshal.PtrToStringAnsi(text)));
        }

        /// <summary>The string behind a handle the callback made (null stays null); the handle is released.</summary>
        internal static string Take(IntPtr made)
        {
            if (made == IntPtr.Zero) return null;
            GCHandle handle = GCHandle.FromIntPtr(made);
            var text = (string)handle.Target;
            handle.Free();
            return text;
        }
    }

    /// <summary>
    /// The exception callbacks of the three modules: each records the failure
    /// for this thread, and the generated member throws it once the native call
    /// has returned.
    /// </summary>
    internal static class NativeErrors
    {
        internal delegate void Raise(string message);
        internal delegate void RaiseArgument(string message, string parameter);

        [ThreadStatic] private static Exception pending;

        internal static bool Pending => pending != null;

        internal static Exception Retrieve()
        {
            Exception e = pending;
            pending = null;
            return e;
        }

        // Another failure before the first was thrown: the first becomes its inner exception.
        private static void Set(Func<Exception, Exception> make) => pending = make(Retrieve());

        internal sealed class Table
        {
            internal readonly Raise Application = NativeCallbacks.Register<Raise>(OnApplication);
            internal readonly Raise Arithmetic = NativeCallbacks.Register<Raise>(OnArithmetic);
            internal readonly Raise DivideByZero = NativeCallbacks.Register<Raise>(OnDivideByZero);
            internal readonly Raise IndexOutOfRange = NativeCallbacks.Register<Raise>(OnIndexOutOfRange);
            internal readonly Raise InvalidCast = NativeCallbacks.Register<Raise>(OnInvalidCast);
            internal readonly Raise InvalidOperation = NativeCallbacks.Register<Raise>(OnInvalidOperation);
            internal readonly Raise IO = NativeCallbacks.Register<Raise>(OnIO);
            internal readonly Raise NullReference = NativeCallbacks.Register<Raise>(OnNullReference);
            internal readonly Raise OutOfMemory = NativeCallbacks.Register<Raise>(OnOutOfMemory);
            internal readonly Raise Overflow = NativeCallbacks.Register<Raise>(OnOverflow);
            internal readonly Raise System = NativeCallbacks.Register<Raise>(OnSystem);
            internal readonly RaiseArgument Argument = NativeCallbacks.Register<RaiseArgument>(OnArgument);
            internal readonly RaiseArgument ArgumentNull = NativeCallbacks.Register<RaiseArgument>(OnArgumentNull);
            internal readonly RaiseArgument ArgumentOutOfRange = NativeCallbacks.Register<RaiseArgument>(OnArgumentOutOfRange);
        }

        internal static readonly Table Entries = new Table();

        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnApplication(string m) => Set(inner => new ApplicationException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnArithmetic(string m) => Set(inner => new ArithmeticException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnDivideByZero(string m) => Set(inner => new DivideByZeroException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnIndexOutOfRange(string m) => Set(inner => new IndexOutOfRangeException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnInvalidCast(string m) => Set(inner => new InvalidCastException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnInvalidOperation(string m) => Set(inner => new InvalidOperationException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnIO(string m) => Set(inner => new global::System.IO.IOException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnNullReference(string m) => Set(inner => new NullReferenceException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnOutOfMemory(string m) => Set(inner => new OutOfMemoryException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnOverflow(string m) => Set(inner => new OverflowException(m, inner));
        [MonoPInvokeCallback(typeof(Raise))]
        private static void OnSystem(string m) => Set(inner => new SystemException(m, inner));
        [MonoPInvokeCallback(typeof(RaiseArgument))]
        private static void OnArgument(string m, string p) => Set(inner => new ArgumentException(m, p, inner));

        // These two have no (message, parameter, inner) constructor: an earlier
        // failure's message is appended instead.
        [MonoPInvokeCallback(typeof(RaiseArgument))]
        private static void OnArgumentNull(string m, string p) =>
            Set(inner => new ArgumentNullException(p, inner == null ? m : $"{m} Inner Exception: {inner.Message}"));
        [MonoPInvokeCallback(typeof(RaiseArgument))]
        private static void OnArgumentOutOfRange(string m, string p) =>
            Set(inner => new ArgumentOutOfRangeException(p, inner == null ? m : $"{m} Inner Exception: {inner.Message}"));
    }
}
