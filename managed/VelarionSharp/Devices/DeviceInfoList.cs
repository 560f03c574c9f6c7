using System;
using System.Collections.Generic;

namespace Velarion
{
    /// <summary>
    /// A list of device descriptions kept natively, as
    /// <see cref="VelarionLibrary"/> gathers them. Elements are copies both
    /// ways: the indexer and the enumerator hand out a new <see cref="DeviceInfo"/>
    /// that the caller owns (dispose it, or leave it to the finalizer), and what
    /// is stored is a copy of the description given. The list itself is owned:
    /// dispose it when done.
    /// </summary>
    public partial class DeviceInfoList : IReadOnlyList<DeviceInfo>
    {
        // A description is one pointer to the device library's own record,
        // which each copy allocates as well (its size is the device library's:
        // counted here as at least 64 bytes).
        private static long BytesEach => IntPtr.Size;
        private static long CopyBytesEach => IntPtr.Size + 64;

        internal static void CheckSize(int capacity, string parameter) => NativeSize.Check(capacity, BytesEach, parameter);

        internal static void CheckRepeat(DeviceInfo value, int count) => NativeSize.Check(count, CopyBytesEach, nameof(count));

        /// <summary>Copies of every description, as a new array; the caller owns each.</summary>
        public DeviceInfo[] ToArray()
        {
            var array = new DeviceInfo[Count];
            for (int i = 0; i < array.Length; ++i) array[i] = this[i];
            return array;
        }
    }
}
