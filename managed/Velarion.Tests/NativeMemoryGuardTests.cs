using System;
using System.Linq;
using Xunit;

namespace Velarion.Tests
{
    // Mistakes in C# that would read or write native memory that is not there:
    // counts beyond the elements given, handles into storage that moved or was
    // freed, owners collected while something still points into them.
    public class NativeMemoryGuardTests
    {
        private static Transducer Element(float x) => new Transducer(x, 0, 0, 0, 0, 1, 1);

        private static float[] Xs(TransducerContainer container) =>
            Enumerable.Range(0, (int)container.size()).Select(i => container.at((uint)i).x_position).ToArray();

        [Fact]
        public void TransducerArraysAreCopiedWithTheirOwnCount()
        {
            using var container = new TransducerContainer(new[] { Element(1), Element(2), Element(3) });
            Assert.Equal(new[] { 1f, 2f, 3f }, Xs(container));

            Assert.True(container.insert(1, new[] { Element(4), Element(5) }));
            Assert.True(container.insert(5, new[] { Element(6) }));
            Assert.True(container.insert(0, Array.Empty<Transducer>()));
            Assert.False(container.insert(7, new[] { Element(7) }));
            Assert.Equal(new[] { 1f, 4f, 5f, 2f, 3f, 6f }, Xs(container));

            // The container's own elements may be inserted into it: they are copied first.
            Assert.True(container.insert(0, new[] { container.at(5), container.at(4) }));
            Assert.True(container.insert(0, 1, container.at(2)));
            Assert.Equal(new[] { 1f, 6f, 3f, 1f, 4f, 5f, 2f, 3f, 6f }, Xs(container));

            Assert.Throws<ArgumentNullException>(() => new TransducerContainer((Transducer[])null));
            Assert.Throws<ArgumentException>(() => container.insert(0, new[] { Element(8), null }));
            Assert.Equal(9ul, container.size());
        }

        [Fact]
        public void TheRawFormsRefuseACountBeyondTheOneElementGiven()
        {
            // The native side would read count elements from where the one proxy points.
            var one = Element(1);
            Assert.Throws<ArgumentOutOfRangeException>(() => new TransducerContainer(2, one));
            Assert.Throws<ArgumentOutOfRangeException>(() => new TransducerContainer(1, null));
            using var container = new TransducerContainer(1, one);
            Assert.Throws<ArgumentOutOfRangeException>(() => container.insert(0, 3, one));
            Assert.Throws<ArgumentOutOfRangeException>(() => container.insert(0, 1, null));
            Assert.True(container.insert(0, 0, null));
            Assert.True(container.insert(1, 1, Element(2)));
            Assert.Equal(new[] { 1f, 2f }, Xs(container));
        }

        [Fact]
        public void ElementsBorrowedBeforeAChangeOrDisposalAreRefused()
        {
            var container = new TransducerContainer(new[] { Element(1), Element(2) });
            var first = container.at(0);
            var data = container.data();
            first.multiplier = 0.5f;  // a borrowed element writes into the container
            Assert.Equal(0.5f, data.multiplier);

            // Growing may move the storage: the old elements would read freed memory.
            Assert.True(container.insert(2, Enumerable.Range(0, 64).Select(i => Element(i)).ToArray()));
            Assert.Throws<InvalidOperationException>(() => first.x_position);
            Assert.Throws<InvalidOperationException>(() => data.multiplier = 1);
            Assert.Throws<InvalidOperationException>(() => first.isEnabled());
            Assert.Throws<InvalidOperationException>(() => container.insert(0, 1, first));
            Assert.Throws<InvalidOperationException>(() => new TransducerContainer(new[] { first }));

            var second = container.at(1);
            Assert.False(container.erase(60, 10));  // nothing changed: still valid
            Assert.Equal(2f, second.x_position);
            Assert.True(container.erase(0, 1));
            Assert.Throws<InvalidOperationException>(() => second.x_position);

            var last = container.at(64);
            container.Dispose();
            Assert.Throws<InvalidOperationException>(() => last.x_position);

            // An element of its own stays usable.
            var own = Element(3);
            own.x_position = 4;
            Assert.Equal(4f, own.x_position);
        }
    }
}
