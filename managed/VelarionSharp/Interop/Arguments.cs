using System;
using System.Runtime.InteropServices;

namespace Velarion.Interop
{
    // Checks made in C# before any native call, so that a mistake is the .NET
    // exception a caller expects, naming the parameter.
    internal static class Arguments
    {
        // A string the native side reads up to its first NUL: a NUL inside
        // would silently cut it (a path to another file, an identifier to
        // another device).
        internal static string Text(string? value, string parameter)
        {
            if (value == null) throw new ArgumentNullException(parameter);
            if (value.IndexOf('\0') >= 0)
                throw new ArgumentException("must not contain a NUL character ('\\0'): the device library would read only the text before it",
                                            parameter);
            return value;
        }

        internal static int InRange(int value, int minimum, int maximum, string parameter)
        {
            if (value < minimum || value > maximum)
                throw new ArgumentOutOfRangeException(parameter, value, $"must be from {minimum} to {maximum}");
            return value;
        }

        internal static bool IsFinite(NVector3 v) => IsFinite(v.X) && IsFinite(v.Y) && IsFinite(v.Z);

        private static bool IsFinite(float value) => !float.IsNaN(value) && !float.IsInfinity(value);
    }

    // The raw pointer of a handle for the length of a call: a Dispose on another
    // thread frees the object only once the lease is over.
    internal ref struct HandleLease
    {
        private readonly SafeHandle handle;
        private bool added;

        internal HandleLease(NativeHandle handle)
        {
            this.handle = handle;
            added = false;
            handle.DangerousAddRef(ref added);
            Pointer = handle.DangerousGetHandle();
        }

        internal IntPtr Pointer { get; }

        public void Dispose()
        {
            if (added) handle.DangerousRelease();
            added = false;
        }
    }
}
