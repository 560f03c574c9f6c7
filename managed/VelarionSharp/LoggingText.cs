using System;
using System.Runtime.InteropServices;

namespace Velarion
{
    // The texts of a log line as they cross from the logging director. They use
    // the string marshaller's own allocator and encoding, so a copy the string
    // callback made can be released here.
    internal static class LoggingText
    {
        // A text from the director: read once, then released (null stays null).
        internal static string Take(IntPtr text)
        {
            if (text == IntPtr.Zero) return null;
            try
            {
                return Marshal.PtrToStringAnsi(text);
            }
            finally
            {
                Marshal.FreeCoTaskMem(text);
            }
        }
    }
}
