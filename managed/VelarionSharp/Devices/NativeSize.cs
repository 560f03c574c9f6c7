using System;
using System.IO;
using System.Runtime.InteropServices;

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
#else
                if (machine > 0) return machine;
#endif
                return IntPtr.Size == 8 ? 1L << 40 : int.MaxValue;
            }
        }

#if !NETCOREAPP3_0_OR_GREATER
        // The netstandard2.1 build (Mono, Unity) has no GC memory information:
        // the machine's memory, or its container's limit, read once.
        private static readonly long machine = MachineBytes();

        private static long MachineBytes()
        {
            try
            {
                if (RuntimeInformation.IsOSPlatform(OSPlatform.Windows))
                {
                    var status = new MemoryStatus { Length = (uint)Marshal.SizeOf<MemoryStatus>() };
                    return GlobalMemoryStatusEx(ref status) ? (long)Math.Min(status.TotalPhysical, long.MaxValue) : 0;
                }
                long bytes = 0;
                foreach (string line in File.ReadLines("/proc/meminfo"))
                {
                    if (!line.StartsWith("MemTotal:", StringComparison.Ordinal)) continue;
                    string[] parts = line.Split((char[])null, StringSplitOptions.RemoveEmptyEntries);
                    if (parts.Length >= 2 && long.TryParse(parts[1], out long kilobytes)) bytes = kilobytes * 1024;
                    break;
                }
                foreach (string limit in new[] { "/sys/fs/cgroup/memory.max", "/sys/fs/cgroup/memory/memory.limit_in_bytes" })
                {
                    if (File.Exists(limit) && long.TryParse(File.ReadAllText(limit).Trim(), out long cap) && cap > 0 && (bytes == 0 || cap < bytes))
                    {
                        bytes = cap;
                    }
                }
                return bytes;
            }
            catch (Exception e) when (e is IOException || e is UnauthorizedAccessException || e is DllNotFoundException || e is EntryPointNotFoundException)
            {
                return 0;
            }
        }

        [StructLayout(LayoutKind.Sequential)]
        private struct MemoryStatus
        {
            public uint Length;
            public uint MemoryLoad;
            public ulong TotalPhysical;
            public ulong AvailablePhysical;
            public ulong TotalPageFile;
            public ulong AvailablePageFile;
            public ulong TotalVirtual;
            public ulong AvailableVirtual;
            public ulong AvailableExtendedVirtual;
        }

        [DllImport("kernel32", SetLastError = true)]
        [return: MarshalAs(UnmanagedType.Bool)]
        private static extern bool GlobalMemoryStatusEx(ref MemoryStatus status);
#endif

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
        internal static long StringBytes(string value)
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
