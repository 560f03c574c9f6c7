using System;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;

namespace Velarion.Benchmarks
{
    /// <summary>
    /// The same exports the binding calls, declared by hand: what a crossing
    /// costs with nothing of the binding around it.
    /// </summary>
    internal static unsafe partial class Floor
    {
        private const string Interop = "VelarionCSharp";
        private const string Emulator = "Velarion";

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_NVector3__SWIG_1")]
        internal static partial IntPtr NewVector(float x, float y, float z);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_NVector3")]
        internal static partial void DeleteVector(IntPtr vector);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_NVector3_operator_plus__SWIG_1")]
        internal static partial IntPtr AddVectors(IntPtr a, IntPtr b);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_Matrix4x4_identity")]
        internal static partial IntPtr IdentityMatrix();

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_Matrix4x4")]
        internal static partial void DeleteMatrix(IntPtr matrix);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_Matrix4x4_transformPosition")]
        internal static partial IntPtr TransformPosition(IntPtr matrix, IntPtr position);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_AmplitudeModulationEmitter__SWIG_1", StringMarshalling = StringMarshalling.Utf8)]
        internal static partial IntPtr NewAmplitudeModulationEmitter(string identifier);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_AmplitudeModulationEmitter")]
        internal static partial void DeleteAmplitudeModulationEmitter(IntPtr emitter);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_ControlPointCollection")]
        internal static partial IntPtr NewControlPointCollection();

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_ControlPointCollection")]
        internal static partial void DeleteControlPointCollection(IntPtr collection);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_AmplitudeModulationControlPoint__SWIG_0")]
        internal static partial IntPtr NewControlPoint(float x, float y, float z, float intensity, float frequency);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_AmplitudeModulationControlPoint")]
        internal static partial void DeleteControlPoint(IntPtr point);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_ControlPointCollection_clear")]
        private static partial void ClearPoints(IntPtr collection);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_ControlPointCollection_add")]
        private static partial void AddPoint(IntPtr collection, IntPtr point);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setPosition")]
        private static partial void SetPosition(IntPtr point, System.Numerics.Vector3* position);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setDirection")]
        private static partial void SetDirection(IntPtr point, System.Numerics.Vector3* direction);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setIntensity")]
        private static partial void SetIntensity(IntPtr point, float intensity);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_AmplitudeModulationControlPoint_setFrequency")]
        private static partial void SetFrequency(IntPtr point, float frequency);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_AmplitudeModulationEmitter_update_internal")]
        private static partial uint Update(IntPtr emitter, IntPtr collection);

        /// <summary>The calls the binding's update makes for one point, with nothing around them.</summary>
        internal static void SendOnePoint(IntPtr emitter, IntPtr collection, IntPtr point, float x)
        {
            var position = new System.Numerics.Vector3(x, 0f, 0.2f);
            var direction = default(System.Numerics.Vector3);
            ClearPoints(collection);
            SetPosition(point, &position);
            SetDirection(point, &direction);
            SetIntensity(point, 1f);
            SetFrequency(point, 125f);
            AddPoint(collection, point);
            if (Update(emitter, collection) == 0) throw new InvalidOperationException("the update was refused");
        }

        [LibraryImport(Emulator, EntryPoint = "VelarionEmulator_Streaming_newEmitter")]
        internal static partial IntPtr NewSteppedEmitter();

        [LibraryImport(Emulator, EntryPoint = "VelarionEmulator_Streaming_deleteEmitter")]
        internal static partial void DeleteSteppedEmitter(IntPtr emitter);

        [LibraryImport(Emulator, EntryPoint = "VelarionEmulator_Streaming_step")]
        internal static partial int Step(IntPtr emitter, long firstTimeNanoseconds, long spacingNanoseconds,
                                         uint timePointCount, uint maximumControlPointCount);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_EmissionCallbackWrapper")]
        internal static partial IntPtr NewEmissionCallbackWrapper(IntPtr emitter);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_EmissionCallbackWrapper")]
        internal static partial void DeleteEmissionCallbackWrapper(IntPtr wrapper);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_EmissionCallbackWrapper_director_connect")]
        internal static partial void ConnectDirector(IntPtr wrapper, IntPtr setSuspended, IntPtr isSuspended,
                                                     delegate* unmanaged<uint, uint, uint, IntPtr, IntPtr, PlainRecord*, void> callback);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback")]
        internal static partial uint SetEmissionCallback(IntPtr emitter, IntPtr wrapper);

        // The director's callback as a bare static function: the native bridge
        // and one reverse platform-invoke transition, no managed layer.
        [UnmanagedCallersOnly]
        private static void EditEveryRecord(uint timePoints, uint controlPoints, uint stride, IntPtr callbackTime,
                                            IntPtr times, PlainRecord* records)
        {
            for (int k = 0; k < (int)timePoints; k++)
            {
                var row = new Span<PlainRecord>(records + (long)k * stride, (int)controlPoints);
                Edit.Apply(row, k);
            }
        }

        /// <summary>A wrapper whose director calls <see cref="EditEveryRecord"/>, installed in <paramref name="emitter"/>.</summary>
        internal static IntPtr InstallBareCallback(IntPtr emitter)
        {
            var wrapper = NewEmissionCallbackWrapper(emitter);
            ConnectDirector(wrapper, IntPtr.Zero, IntPtr.Zero, &EditEveryRecord);
            SetEmissionCallback(emitter, wrapper);
            return wrapper;
        }
    }

    /// <summary>The binding's 40-byte emission record, declared without the binding.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 40)]
    internal struct PlainRecord
    {
        [FieldOffset(0)] public System.Numerics.Vector3 Position;
        [FieldOffset(12)] public float Intensity;
        [FieldOffset(16)] public System.Numerics.Vector3 Direction;
        [FieldOffset(32)] public ushort Index;
        [FieldOffset(34)] public byte Enabled;
        [FieldOffset(35)] public byte Modified;
        [FieldOffset(36)] public uint CarriedValue;
    }
}
