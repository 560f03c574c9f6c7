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

        private static float[] Xs(TransducerContainer container) => container.Select(t => t.XPosition).ToArray();

        [Fact]
        public void TransducerArraysAreCopiedWithTheirOwnCount()
        {
            using var container = new TransducerContainer(new[] { Element(1), Element(2), Element(3) });
            Assert.Equal(new[] { 1f, 2f, 3f }, Xs(container));

            container.Insert(1, Element(4), Element(5));
            container.Add(Element(6));
            container.Insert(0);
            Assert.Throws<ArgumentOutOfRangeException>(() => container.Insert(7, Element(7)));
            Assert.Throws<ArgumentOutOfRangeException>(() => container.Insert(-1, Element(7)));
            Assert.Equal(new[] { 1f, 4f, 5f, 2f, 3f, 6f }, Xs(container));

            // The container's own elements may be inserted into it: they are copied first.
            container.Insert(0, container[5], container[4]);
            Assert.True(container.insert(0, 1, container[2]));
            Assert.Equal(new[] { 1f, 6f, 3f, 1f, 4f, 5f, 2f, 3f, 6f }, Xs(container));

            Assert.Throws<ArgumentNullException>(() => new TransducerContainer((Transducer[])null));
            Assert.Throws<ArgumentException>(() => container.Insert(0, Element(8), null));
            Assert.Equal(9, container.Count);

            // Snapshots are copies that outlive the container.
            Transducer[] copies = container.ToArray();
            container.Dispose();
            Assert.Equal(new[] { 1f, 6f, 3f, 1f, 4f, 5f, 2f, 3f, 6f }, copies.Select(t => t.XPosition));
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
            var first = container[0];
            var again = container[0];
            first.Multiplier = 0.5f;  // a borrowed element writes into the container
            Assert.Equal(0.5f, again.Multiplier);

            // Growing may move the storage: the old elements would read freed memory.
            container.Add(Enumerable.Range(0, 64).Select(i => Element(i)).ToArray());
            Assert.Throws<ObjectDisposedException>(() => first.XPosition);
            Assert.Throws<ObjectDisposedException>(() => again.Multiplier = 1);
            Assert.Throws<ObjectDisposedException>(() => first.IsEnabled);
            Assert.Throws<ObjectDisposedException>(() => container.Insert(0, first));
            Assert.Throws<ObjectDisposedException>(() => new TransducerContainer(new[] { first }));

            var second = container[1];
            Assert.Throws<ArgumentException>(() => container.RemoveRange(60, 10));  // nothing changed: still valid
            Assert.Equal(2f, second.XPosition);
            container.RemoveAt(0);
            Assert.Throws<ObjectDisposedException>(() => second.XPosition);

            // Enumerating while the container changes stops at the next step.
            Assert.Throws<InvalidOperationException>(() =>
            {
                foreach (var element in container) container.RemoveAt(container.Count - 1);
            });

            var last = container[container.Count - 1];
            container.Dispose();
            Assert.Throws<ObjectDisposedException>(() => last.XPosition);

            // An element of its own stays usable.
            var own = Element(3);
            own.Position = new System.Numerics.Vector3(4, 5, 6);
            Assert.Equal((4f, 6f), (own.XPosition, own.ZPosition));
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
                BorrowFromADroppedOwner(() => Transform.Translation(1, 2, 3), t => t.Basis),
                BorrowFromADroppedOwner(() => Transform.Translation(1, 2, 3), t => t.Origin),
                BorrowFromADroppedOwner(() => new TimePointStreamingEmitter(), e => e.SamplingInterval),
                BorrowFromADroppedOwner(() => new TimePointStreamingEmitter(), e => e.LastSampleTime),
                BorrowFromADroppedOwner(() => new TransducerContainer(new[] { Element(1) }), c => c[0]),
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
            Assert.Equal((1f, 2f, 3f), (origin.X, origin.Y, origin.Z));
            Assert.Equal(1.0, ((Matrix3x3)cases[2].Borrowed)[2, 2]);
            Assert.Equal(0.7f, ((AmplitudeModulationControlPoint)cases[7].Borrowed).getIntensity());
            Assert.True(((HostDuration)cases[4].Borrowed).Nanoseconds > 0);
            foreach (var c in cases) ((IDisposable)c.Borrowed).Dispose();
        }

        [Fact]
        public void MatrixIndicesAndElementArraysStayInsideTheMatrix()
        {
            using var z = new NVector3(0, 0, 1);
            using var rotation = Matrix3x3.Rotate(z, Math.PI / 2);
            using var scale = Matrix4x4.Scale(2, 3, 4);

            // Natively unchecked: far indices read far outside the matrix.
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation[3, 0]);
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation[0, -1]);
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation[0, 3] = 1);
            Assert.Throws<ArgumentOutOfRangeException>(() => scale[4, 0]);
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.GetRow(-1));
            Assert.Throws<ArgumentOutOfRangeException>(() => rotation.GetColumn(100_000_000));
            using (var row = rotation.GetRow(2)) Assert.Equal(1f, row.Z);

            double[] nine = rotation.Elements;
            double[] sixteen = scale.Elements;
            Assert.Equal((9, 16), (nine.Length, sixteen.Length));
            Assert.Equal(3.0, sixteen[5]);

            // The native setter reads a whole matrix from what it is given.
            Assert.Throws<ArgumentException>(() => scale.Elements = nine);
            Assert.Throws<ArgumentException>(() => rotation.Elements = sixteen);
            Assert.Throws<ArgumentNullException>(() => rotation.Elements = null);
            Assert.Equal(3.0, scale[1, 1]);

            sixteen[0] = 5;
            Assert.Equal(2.0, scale[0, 0]);  // a copy: the matrix changes only when assigned
            scale.Elements = sixteen;
            Assert.Equal(5.0, scale[0, 0]);
        }

        [Fact]
        public void ListElementsAndLentPointsOutliveChangesSafely()
        {
            using var library = new VelarionLibrary();
            using var infos = library.GetDeviceInfos();
            var first = infos[0];
            var listed = infos.ToList();
            infos.Clear();  // frees the stored descriptions
            Assert.Equal("VLA16-2A1F0031", first.DeviceIdentifier);
            Assert.Equal("VLC10-5B330107", listed[1].DeviceIdentifier);

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
