using System;
using System.Collections;
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

        /// <summary>A list of copies of <paramref name="values"/>, in their order.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="values"/> or one of them is null.</exception>
        public DeviceInfoList(IEnumerable<DeviceInfo> values) : this()
        {
            if (values == null) throw new ArgumentNullException(nameof(values));
            foreach (DeviceInfo value in values) Add(value);
        }

        /// <summary>The number of descriptions.</summary>
        public int Count => checked((int)size());

        /// <summary>
        /// The number of descriptions the list holds without growing. Setting
        /// it reserves room; it never shrinks the storage.
        /// </summary>
        /// <exception cref="ArgumentOutOfRangeException">Set below <see cref="Count"/>.</exception>
        /// <exception cref="OutOfMemoryException">Set to more than this process could ever hold.</exception>
        public int Capacity
        {
            get => checked((int)capacity());
            set
            {
                if (value < Count) throw new ArgumentOutOfRangeException(nameof(value), value, "below the list's Count");
                CheckSize(value, nameof(value));
                reserve((uint)value);
            }
        }

        /// <summary>
        /// A new copy of the description at <paramref name="index"/>, owned by
        /// the caller; setting stores a copy of the value.
        /// </summary>
        /// <exception cref="ArgumentOutOfRangeException">No description at <paramref name="index"/>.</exception>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        public DeviceInfo this[int index]
        {
            get => getitemcopy(index);
            set => setitem(index, value);
        }

        /// <summary>Copies of every description, as a new array; the caller owns each.</summary>
        public DeviceInfo[] ToArray()
        {
            var array = new DeviceInfo[Count];
            for (int i = 0; i < array.Length; ++i) array[i] = this[i];
            return array;
        }

        /// <summary>
        /// Enumerates new copies of the descriptions, each owned by the caller.
        /// Adding or removing descriptions while enumerating makes the next step
        /// throw <see cref="InvalidOperationException"/>.
        /// </summary>
        public IEnumerator<DeviceInfo> GetEnumerator()
        {
            int count = Count;
            for (int i = 0; i < count; ++i)
            {
                if (Count != count) throw new InvalidOperationException("the list changed during the enumeration");
                yield return this[i];
            }
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();
    }
}
