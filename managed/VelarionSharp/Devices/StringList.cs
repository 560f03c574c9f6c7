using System;
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
    }
}
