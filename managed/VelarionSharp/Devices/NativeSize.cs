using System;

namespace Velarion
{
    // The native lists do not catch a failed allocation: a size the process
    // cannot have would end it. Such sizes are refused here, as a .NET list
    // refuses them, before the native side is reached.
    internal static class NativeSize
    {
        // What the process can have at most: the machine's memory, or the
        // limit set on the process or its container.
        internal static long AvailableBytes
        {
            get
            {
#if NETCOREAPP3_0_OR_GREATER
                long total = GC.GetGCMemoryInfo().TotalAvailableMemoryBytes;
                if (total > 0) return total;
#endif
                return IntPtr.Size == 8 ? 1L << 40 : int.MaxValue;
            }
        }

        // Checks room for `count` elements of `bytesEach` bytes.
        internal static void Check(long count, long bytesEach, string parameter)
        {
            if (count < 0)
                throw new ArgumentOutOfRangeException(parameter, count, "must not be negative");
            if (count > AvailableBytes / Math.Max(bytesEach, 1))
                throw new OutOfMemoryException(
                    $"{count} elements of {bytesEach} bytes are more than this process can have ({AvailableBytes} bytes)");
        }

        // A std::string: four pointers (the text inline up to 15 bytes).
        internal static long StringBytes(string? value)
        {
            long bytes = 4L * IntPtr.Size;
            if (value != null)
            {
                int length = System.Text.Encoding.UTF8.GetByteCount(value);
                if (length > 15) bytes += length + 1;
            }
            return bytes;
        }
    }
}
