using System;
using System.Linq;
using System.Runtime.CompilerServices;
using Xunit;

namespace Velarion.Tests
{
    // Mistakes in C# that would read or write native memory that is not there:
    // counts beyond the elements given, handles into storage that moved or was
    // freed, owners collected while something still points into them.
    [Collection("Emulated devices")]
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
            Assert.Throws<ObjectDisposedException>(() => first.x_position);
            Assert.Throws<ObjectDisposedException>(() => data.multiplier = 1);
            Assert.Throws<ObjectDisposedException>(() => first.isEnabled());
            Assert.Throws<ObjectDisposedException>(() => container.insert(0, 1, first));
            Assert.Throws<ObjectDisposedException>(() => new TransducerContainer(new[] { first }));

            var second = container.at(1);
            Assert.False(container.erase(60, 10));  // nothing changed: still valid
            Assert.Equal(2f, second.x_position);
            Assert.True(container.erase(0, 1));
            Assert.Throws<ObjectDisposedException>(() => second.x_position);

            var last = container.at(64);
            container.Dispose();
            Assert.Throws<ObjectDisposedException>(() => last.x_position);

            // An element of its own stays usable.
            var own = Element(3);
            own.x_position = 4;
            Assert.Equal(4f, own.x_position);
        }

        // Makes an owner, borrows from it and lets go of it.
        [MethodImpl(MethodImplOptions.NoInlining)]
        private static (object Borrowed, WeakReference Owner) BorrowFromADroppedOwner<T>(Func<T> make, Func<T, object> borrow)
        {
            T owner = make();
            return (borrow(owner), new WeakReference(owner));
        }

        [Fact]
        public void BorrowedHandlesKeepTheirOwnersNativeObjects()
        {
            // Collected, each owner would free the memory the borrowed handle points into.
            var cases = new[]
            {
                BorrowFromADroppedOwner(() => new ControlPointBase(1, 2, 3, 0.5f), r => r.position),
                BorrowFromADroppedOwner(() => new ControlPointBase(1, 2, 3, 0.5f), r => r.direction),
                BorrowFromADroppedOwner(() => Transform.translation(1, 2, 3), t => t.basis()),
                BorrowFromADroppedOwner(() => Transform.translation(1, 2, 3), t => t.origin_internal()),
                BorrowFromADroppedOwner(() => new TimePointStreamingEmitter(), e => e.SamplingInterval),
                BorrowFromADroppedOwner(() => new TimePointStreamingEmitter(), e => e.LastSampleTime),
                BorrowFromADroppedOwner(() => new TransducerContainer(new[] { Element(1) }), c => c.at(0)),
                BorrowFromADroppedOwner(() =>
                {
                    var points = new ControlPointCollection();
                    using var point = new AmplitudeModulationControlPoint(0, 0, 0.2f, 0.7f);
                    points.add(point);
                    return points;
                }, c => c.data()),
            };
            GC.Collect();
            GC.WaitForPendingFinalizers();
            GC.Collect();

            // The owners' proxies may be gone; their native objects are not.
            var origin = (NVector3)cases[3].Borrowed;
            Assert.Equal((1f, 2f, 3f), (origin.x, origin.y, origin.z));
            Assert.Equal(1.0, ((Matrix3x3)cases[2].Borrowed).at(2, 2));
            Assert.Equal(0.7f, ((AmplitudeModulationControlPoint)cases[7].Borrowed).getIntensity());
            Assert.True(((HostDuration)cases[4].Borrowed).nanoseconds() > 0);
            foreach (var c in cases) ((IDisposable)c.Borrowed).Dispose();
        }

        [Fact]
        public void MatrixIndicesAndElementArraysStayInsideTheMatrix()
        {
            using var rotation = Matrix3x3.rotate(new NVector3(0, 0, 1), Math.PI / 2);
            using var scale = Matrix4x4.scale(2, 3, 4);

            // Natively unchecked: far indices read far outside the matrix.
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.at(3, 0));
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.at(0, uint.MaxValue));
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.getRow(-1));
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.getCol(100_000_000));
            using (var row = rotation.getRow(2)) Assert.Equal(1f, row.z);

            double[] nine = rotation.element;
            double[] sixteen = scale.element;
            Assert.Equal((9, 16), (nine.Length, sixteen.Length));
            Assert.Equal(3.0, sixteen[5]);

            // The native setter reads a whole matrix from what it is given.
            Assert.Throws<ArgumentException>(() => scale.element = nine);
            Assert.Throws<ArgumentException>(() => rotation.element = sixteen);
            Assert.Throws<ArgumentNullException>(() => rotation.element = null);
            Assert.Equal(3.0, scale.element[5]);

            sixteen[0] = 5;
            Assert.Equal(2.0, scale.element[0]);  // a copy: the matrix changes only when assigned
            scale.element = sixteen;
            Assert.Equal(5.0, scale.element[0]);
        }

        [Fact]
        public void ListElementsAndLentPointsOutliveChangesSafely()
        {
            using var library = new VelarionLibrary();
            using var infos = library.getManagedDeviceInfos();
            var first = infos[0];
            var listed = infos.ToList();
            infos.Clear();  // frees the stored descriptions
            Assert.Equal("VLA16-2A1F0031", first.getDeviceIdentifier());
            Assert.Equal("VLC10-5B330107", listed[1].getDeviceIdentifier());

            using var points = new ControlPointCollection();
            Assert.Null(points.data());
            using var point = new AmplitudeModulationControlPoint(0, 0, 0.2f, 0.7f);
            points.add(point);
            var lent = points.data();
            lent.setIntensity(0.3f);  // writes into the collection
            using (var stored = points.get(0)) Assert.Equal(0.3f, stored.getIntensity());

            points.add(point);  // may move the storage
            Assert.Throws<ObjectDisposedException>(() => lent.getIntensity());
            Assert.Throws<ObjectDisposedException>(() => points.add(lent));
            Assert.Throws<ObjectDisposedException>(() => new AmplitudeModulationControlPoint(lent));
            Assert.Equal(2u, points.length());

            // A cleared collection still has storage natively, but no point to lend.
            points.clear();
            Assert.Null(points.data());
        }

        [Fact]
        public void ExtendedOptionBuffersAreNotOverrun()
        {
            // The device library writes up to `size` bytes, trusting the caller.
            var small = new byte[2];
            using (var emitter = new AmplitudeModulationEmitter())
            {
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", small, 8));
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", null, 1));
            }
            using (var emitter = new TimePointStreamingEmitter())
            {
                Assert.Throws<ArgumentOutOfRangeException>(() => emitter.getExtendedOption_internal("speedOfSound", small, 3));
                Assert.Equal(emitter.getExtendedOption_internal("speedOfSound", null, 0),
                             emitter.getExtendedOption_internal("speedOfSound", new byte[16], 16));
            }
            Assert.All(small, b => Assert.Equal(0, b));
        }
    }
}
