using System;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;
using System.Text;

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

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_new_StringList__SWIG_0")]
        internal static partial IntPtr NewStringList();

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_delete_StringList")]
        internal static partial void DeleteStringList(IntPtr list);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_StringList_Add", StringMarshalling = StringMarshalling.Utf8)]
        internal static partial void AddString(IntPtr list, string value);

        [LibraryImport(Interop, EntryPoint = "CSharp_Velarion_StringList_getitem")]
        internal static partial IntPtr GetItem(IntPtr list, int index);

        [LibraryImport(Interop, EntryPoint = "SWIGRegisterStringCallback_velarion")]
        internal static partial void RegisterStringCallback(delegate* unmanaged<byte*, IntPtr> callback);

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

        // The string the export just handed over: decoded once, straight from
        // the native text, with no native copy and no second marshalling.
        [ThreadStatic] private static string lastString;

        [UnmanagedCallersOnly]
        private static IntPtr DecodeOnce(byte* text)
        {
            lastString = text == null ? null : Encoding.UTF8.GetString(MemoryMarshal.CreateReadOnlySpanFromNullTerminated(text));
            return IntPtr.Zero;
        }

        /// <summary>Makes the velarion module hand strings to <see cref="TakeString"/>.</summary>
        internal static void UseDecodeOnceStrings() => RegisterStringCallback(&DecodeOnce);

        [MethodImpl(MethodImplOptions.AggressiveInlining)]
        internal static string TakeString()
        {
            var text = lastString;
            lastString = null;
            return text;
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
