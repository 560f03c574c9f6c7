using System;
using System.Collections;
using System.Collections.Generic;
using System.Linq;

namespace Velarion
{
    /// <summary>
    /// The ordered elements that make up an array's layout
    /// (<see cref="DeviceInfo.GetTransducerConfiguration"/>), kept natively in
    /// one contiguous block. Owned: dispose it when done.
    /// </summary>
    /// <remarks>
    /// The indexer and the enumerator lend out elements: each reads and writes
    /// the container's own storage and keeps the container alive, and is
    /// refused with <see cref="ObjectDisposedException"/> once the container
    /// changed (an insertion or removal may move the storage) or was disposed.
    /// Elements passed in are copied. <see cref="ToArray"/> takes copies that
    /// stay valid.
    /// </remarks>
    public partial class TransducerContainer : IReadOnlyList<Transducer>
    {
        /// <summary>A layout of copies of <paramref name="elements"/>, in their order.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="elements"/> is null.</exception>
        /// <exception cref="ArgumentException">An element is null.</exception>
        /// <exception cref="ObjectDisposedException">An element was disposed, or lent out by a container that has changed since.</exception>
        public TransducerContainer(IEnumerable<Transducer> elements) : this(Create(Copy(Snapshot(elements))), true)
        {
        }

        /// <summary>The number of elements.</summary>
        public int Count => checked((int)size());

        /// <summary>The element at <paramref name="index"/>, lent out (see the remarks on the class).</summary>
        /// <exception cref="ArgumentOutOfRangeException">No element at <paramref name="index"/>.</exception>
        public Transducer this[int index]
        {
            get
            {
                if (index < 0) throw new ArgumentOutOfRangeException(nameof(index));
                return at((uint)index);
            }
        }

        /// <summary>Inserts copies of <paramref name="elements"/> before <paramref name="index"/> (<see cref="Count"/> appends).</summary>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="index"/> lies outside 0 to <see cref="Count"/>.</exception>
        /// <exception cref="ArgumentNullException"><paramref name="elements"/> is null.</exception>
        /// <exception cref="ArgumentException">An element is null.</exception>
        /// <exception cref="InvalidOperationException">The device library refused the insertion; nothing changed.</exception>
        public void Insert(int index, params Transducer[] elements)
        {
            if (index < 0 || index > Count) throw new ArgumentOutOfRangeException(nameof(index), index, "outside 0 to Count");
            if (!insert((uint)index, elements))
                throw new InvalidOperationException($"the device library refused to insert {elements.Length} elements at {index}");
        }

        /// <summary>Appends copies of <paramref name="elements"/>.</summary>
        /// <exception cref="ArgumentNullException"><paramref name="elements"/> is null.</exception>
        /// <exception cref="ArgumentException">An element is null.</exception>
        public void Add(params Transducer[] elements) => Insert(Count, elements);

        /// <summary>Removes <paramref name="count"/> elements from <paramref name="index"/> on.</summary>
        /// <exception cref="ArgumentOutOfRangeException">A negative index or count.</exception>
        /// <exception cref="ArgumentException">The range runs past the end.</exception>
        /// <exception cref="InvalidOperationException">The device library refused the removal; nothing changed.</exception>
        public void RemoveRange(int index, int count)
        {
            if (index < 0) throw new ArgumentOutOfRangeException(nameof(index));
            if (count < 0) throw new ArgumentOutOfRangeException(nameof(count));
            if (index > Count - count) throw new ArgumentException("the range runs past the end");
            if (!erase((uint)index, (uint)count))
                throw new InvalidOperationException($"the device library refused to remove {count} elements at {index}");
        }

        /// <summary>Removes the element at <paramref name="index"/>.</summary>
        /// <exception cref="ArgumentOutOfRangeException">No element at <paramref name="index"/>.</exception>
        public void RemoveAt(int index)
        {
            if (index < 0 || index >= Count) throw new ArgumentOutOfRangeException(nameof(index));
            RemoveRange(index, 1);
        }

        /// <summary>Copies of every element, each owned by the caller and independent of this container.</summary>
        public Transducer[] ToArray()
        {
            var copies = new Transducer[Count];
            for (int i = 0; i < copies.Length; ++i)
            {
                Transducer lent = at((uint)i);
                copies[i] = new Transducer(lent.x_position, lent.y_position, lent.z_position,
                                           lent.x_upvector, lent.y_upvector, lent.z_upvector, lent.multiplier);
            }
            return copies;
        }

        /// <summary>
        /// Enumerates the elements, lent out. Adding or removing elements while
        /// enumerating makes the next step throw <see cref="InvalidOperationException"/>.
        /// </summary>
        public IEnumerator<Transducer> GetEnumerator()
        {
            int count = Count;
            for (int i = 0; i < count; ++i)
            {
                if (Count != count) throw new InvalidOperationException("the container changed during the enumeration");
                yield return at((uint)i);
            }
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        private static Transducer[] Snapshot(IEnumerable<Transducer> elements) =>
            elements as Transducer[] ?? elements?.ToArray() ?? throw new ArgumentNullException(nameof(elements));
    }
}
