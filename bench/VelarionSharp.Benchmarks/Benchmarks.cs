using System;
using System.Collections.Generic;
using BenchmarkDotNet.Attributes;

namespace Velarion.Benchmarks
{
    /// <summary>What the emission benchmarks' "managed code" writes into every record.</summary>
    internal static class Edit
    {
        public const float Intensity = 0.8f;
        public static float Height(int timePoint) => 0.2f + 0.0001f * timePoint;

        public static void Apply(Span<PlainRecord> row, int timePoint)
        {
            for (int j = 0; j < row.Length; j++)
            {
                ref var record = ref row[j];
                record.Position.Z = Height(timePoint);
                record.Intensity = Intensity;
                record.Modified = 1;
            }
        }
    }

    /// <summary>Vector addition: through the binding (values by pointer), the same export by hand, and pure managed.</summary>
    [MemoryDiagnoser]
    public class VectorAddition
    {
        private IntPtr a;
        private IntPtr b;
        private System.Numerics.Vector3 managedA = new(1f, 2f, 3f);
        private System.Numerics.Vector3 managedB = new(0.5f, -1f, 4f);

        [GlobalSetup]
        public void SetUp()
        {
            a = Floor.NewVector(1f, 2f, 3f);
            b = Floor.NewVector(0.5f, -1f, 4f);
        }

        [GlobalCleanup]
        public void CleanUp()
        {
            Floor.DeleteVector(a);
            Floor.DeleteVector(b);
        }

        [Benchmark(Description = "binding: NVector3 + NVector3")]
        public NVector3 Binding() => BoundGeometry.Add();

        [Benchmark(Baseline = true, Description = "floor: [LibraryImport] of the export")]
        public void LibraryImport() => Floor.DeleteVector(Floor.AddVectors(a, b));

        [Benchmark(Description = "floor: System.Numerics.Vector3")]
        public System.Numerics.Vector3 PureManaged() => managedA + managedB;
    }

    /// <summary>A position moved by a 4 x 4 matrix: through the binding, the export by hand, and pure managed.</summary>
    [MemoryDiagnoser]
    public class TransformPosition
    {
        private IntPtr matrix;
        private IntPtr position;
        private readonly System.Numerics.Vector3 point = new(0.1f, 0.2f, 0.3f);
        private readonly System.Numerics.Matrix4x4 managed = System.Numerics.Matrix4x4.CreateTranslation(0.01f, 0f, 0.2f);

        [GlobalSetup]
        public void SetUp()
        {
            matrix = Floor.IdentityMatrix();
            position = Floor.NewVector(0.1f, 0.2f, 0.3f);
        }

        [GlobalCleanup]
        public void CleanUp()
        {
            Floor.DeleteMatrix(matrix);
            Floor.DeleteVector(position);
        }

        [Benchmark(Description = "binding: Matrix4x4.TransformPosition")]
        public System.Numerics.Vector3 Binding() => BoundGeometry.Transform(point);

        [Benchmark(Baseline = true, Description = "floor: [LibraryImport] of the export")]
        public void LibraryImport() => Floor.DeleteVector(Floor.TransformPosition(matrix, position));

        [Benchmark(Description = "floor: System.Numerics.Vector3.Transform")]
        public System.Numerics.Vector3 PureManaged() => System.Numerics.Vector3.Transform(point, managed);
    }

    /// <summary>
    /// A game loop's frame: one focal point moved and sent to an amplitude
    /// modulation emitter on the emulator, through the binding and through the
    /// same exports by hand (the emulator's own work is in both).
    /// </summary>
    [MemoryDiagnoser]
    public class FocalPointFrame
    {
        private BoundFocalPoint bound;
        private IntPtr emitter;
        private IntPtr collection;
        private IntPtr point;
        private float x;

        [GlobalSetup(Target = nameof(Binding))]
        public void SetUpBinding() => bound = new BoundFocalPoint(BoundFocalPoint.FirstDevice());

        [GlobalSetup(Target = nameof(LibraryImport))]
        public void SetUpFloor()
        {
            emitter = Floor.NewAmplitudeModulationEmitter(BoundFocalPoint.FirstDevice());
            collection = Floor.NewControlPointCollection();
            point = Floor.NewControlPoint(0f, 0f, 0.2f, 1f, 125f);
        }

        [GlobalCleanup]
        public void CleanUp()
        {
            bound?.Dispose();
            if (emitter != IntPtr.Zero) Floor.DeleteAmplitudeModulationEmitter(emitter);
            if (collection != IntPtr.Zero) Floor.DeleteControlPointCollection(collection);
            if (point != IntPtr.Zero) Floor.DeleteControlPoint(point);
        }

        private float Next() => x = x > 0.05f ? -0.05f : x + 0.0001f;

        [Benchmark(Description = "binding: Update(span of one point)")]
        public void Binding() => bound.Frame(Next());

        [Benchmark(Baseline = true, Description = "floor: [LibraryImport] of the same exports")]
        public void LibraryImport() => Floor.SendOnePoint(emitter, collection, point, Next());
    }

    /// <summary>
    /// One 80 x 16 output interval: the emulator stepping it through a C#
    /// EmissionCallback that edits every record, against the emulator stepping
    /// it with no callback plus the same edit on a managed array. Between the
    /// two, the native bridge calling a bare static C# function: what is left
    /// once the binding's managed layer is taken away.
    /// </summary>
    [MemoryDiagnoser]
    public class EmissionRoundTrip
    {
        private const uint TimePoints = 80;
        private const uint ControlPoints = 16;
        private const long SpacingNanoseconds = 25_000;  // 40 kHz
        private long firstTime = 1_000_000_000;
        private BoundStreaming bound;
        private IntPtr emitter;
        private PlainRecord[] records;
        private IntPtr bareEmitter;
        private IntPtr bareWrapper;

        [GlobalSetup(Target = nameof(Binding))]
        public void SetUpBinding() => bound = new BoundStreaming();

        [GlobalSetup(Target = nameof(BareBridge))]
        public void SetUpBareBridge()
        {
            bareEmitter = Floor.NewSteppedEmitter();
            bareWrapper = Floor.InstallBareCallback(bareEmitter);
        }

        [GlobalSetup(Target = nameof(EmulatorAndEdit))]
        public void SetUpFloor()
        {
            emitter = Floor.NewSteppedEmitter();
            records = new PlainRecord[TimePoints * ControlPoints];
        }

        [GlobalCleanup]
        public void CleanUp()
        {
            if (bound != null && bound.LastIntensity(TimePoints - 1, ControlPoints - 1) != Edit.Intensity)
            {
                throw new InvalidOperationException("the binding's answers did not reach the emulator");
            }
            bound?.Dispose();
            if (emitter != IntPtr.Zero) Floor.DeleteSteppedEmitter(emitter);
            if (bareEmitter != IntPtr.Zero)
            {
                Floor.SetEmissionCallback(bareEmitter, IntPtr.Zero);
                Floor.DeleteSteppedEmitter(bareEmitter);
                Floor.DeleteEmissionCallbackWrapper(bareWrapper);
            }
        }

        [Benchmark(Description = "binding: EmissionCallback, 80 x 16")]
        public void Binding()
        {
            bound.Step(firstTime, SpacingNanoseconds, TimePoints, ControlPoints);
            firstTime += TimePoints * SpacingNanoseconds;
        }

        [Benchmark(Baseline = true, Description = "floor: emulator + the same edit, 80 x 16")]
        public void EmulatorAndEdit()
        {
            if (Floor.Step(emitter, firstTime, SpacingNanoseconds, TimePoints, ControlPoints) != 0)
            {
                throw new InvalidOperationException("stepping failed");
            }
            firstTime += TimePoints * SpacingNanoseconds;
            var all = records.AsSpan();
            for (int k = 0; k < TimePoints; k++)
            {
                Edit.Apply(all.Slice(k * (int)ControlPoints, (int)ControlPoints), k);
            }
        }

        [Benchmark(Description = "native bridge + [UnmanagedCallersOnly] edit, 80 x 16")]
        public void BareBridge()
        {
            if (Floor.Step(bareEmitter, firstTime, SpacingNanoseconds, TimePoints, ControlPoints) != 0)
            {
                throw new InvalidOperationException("stepping failed");
            }
            firstTime += TimePoints * SpacingNanoseconds;
        }
    }
}
