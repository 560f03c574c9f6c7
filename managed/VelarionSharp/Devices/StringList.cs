using System;
using System.Collections;
using System.Collections.Generic;

namespace Velarion
{
    /// <summary>
    /// A list of strings kept natively (the device identifiers of
    /// <see cref="VelarionLibrary"/>, or a list built to pass in). Elements are
    /// copies both ways: the indexer and the enumerator return new .NET strings,
    /// and what is stored is a UTF-8 copy of the string given. Owned: dispose it
    /// when done.
    /// </summary>
    public partial class StringList : IList<string>, IReadOnlyList<string>
    {
        internal static void CheckSize(int capacity, string parameter) =>
            NativeSize.Check(capacity, NativeSize.StringBytes(null), parameter);

        internal static void CheckRepeat(string value, int count) =>
            NativeSize.Check(count, NativeSize.StringBytes(value), nameof(count));

        /// <summary>A list of copies of <paramref name="values"/>, in their order.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="values"/> or one of them is null.</exception>
        public StringList(IEnumerable<string> values) : this()
        {
            if (values == null) throw new ArgumentNullException(nameof(values));
            foreach (string value in values) Add(value);
        }

        /// <summary>The number of elements.</summary>
        public int Count => checked((int)size());

        /// <summary>
        /// The number of elements the list holds without growing. Setting it
        /// reserves room; it never shrinks the storage.
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

        /// <summary>A copy of the element at <paramref name="index"/>; setting stores a copy.</summary>
        /// <exception cref="ArgumentOutOfRangeException">No element at <paramref name="index"/>.</exception>
        /// <exception cref="ArgumentNullException">Set to null.</exception>
        public string this[int index]
        {
            get => getitemcopy(index);
            set => setitem(index, value);
        }

        bool ICollection<string>.IsReadOnly => false;

        /// <summary>Copies every element into <paramref name="array"/> from <paramref name="arrayIndex"/> on.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="array"/> is null.</exception>
        /// <exception cref="ArgumentException"><paramref name="array"/> is too short.</exception>
        public void CopyTo(string[] array, int arrayIndex)
        {
            if (array == null) throw new ArgumentNullException(nameof(array));
            if (arrayIndex < 0) throw new ArgumentOutOfRangeException(nameof(arrayIndex));
            int count = Count;
            if (array.Length - arrayIndex < count) throw new ArgumentException("the array is too short", nameof(array));
            for (int i = 0; i < count; ++i) array[arrayIndex + i] = this[i];
        }

        /// <summary>The elements as a new array.</summary>
        public string[] ToArray()
        {
            var array = new string[Count];
            CopyTo(array, 0);
            return array;
        }

        /// <summary>
        /// Enumerates copies of the elements. Adding or removing elements while
        /// enumerating makes the next step throw <see cref="InvalidOperationException"/>.
        /// </summary>
        public IEnumerator<string> GetEnumerator()
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
