using System;
using System.Runtime.InteropServices;
using Numerics = System.Numerics;

namespace Velarion
{
    // Geometry operations whose result goes straight to a System.Numerics
    // value: no proxy is made for the operand or the result. The operand is the
    // caller's own Numerics.Vector3, laid out as the native vector (three
    // floats), and the native result is read and freed at once.
    internal static class NativeResult
    {
        // `self` is the proxy's handle as its getCPtr gives it. A SafeHandle is
        // held for the call, so a Dispose on another thread cannot free the
        // object under it.
        internal static Numerics.Vector3 Apply<THandle>(THandle self, object owner, Numerics.Vector3 operand,
                                                        Func<IntPtr, IntPtr, IntPtr> operation)
        {
            try
            {
                if (self is SafeHandle safe)
                {
                    bool added = false;
                    try
                    {
                        safe.DangerousAddRef(ref added);
                        return Run(safe.DangerousGetHandle(), operand, operation);
                    }
                    finally
                    {
                        if (added) safe.DangerousRelease();
                    }
                }
                if (self is HandleRef raw)
                {
                    if (raw.Handle == IntPtr.Zero) throw new ObjectDisposedException(owner.GetType().Name);
                    return Run(raw.Handle, operand, operation);
                }
                throw new NotSupportedException(typeof(THandle).Name);
            }
            finally
            {
                GC.KeepAlive(owner);
            }
        }

        private static unsafe Numerics.Vector3 Run(IntPtr self, Numerics.Vector3 operand, Func<IntPtr, IntPtr, IntPtr> operation)
        {
            IntPtr result = operation(self, (IntPtr)(&operand));
            if (velarionPINVOKE.SWIGPendingException.Pending) throw velarionPINVOKE.SWIGPendingException.Retrieve();
            if (result == IntPtr.Zero) throw new OutOfMemoryException("the native result could not be allocated");
            Numerics.Vector3 value = *(Numerics.Vector3*)result;
            velarionPINVOKE.DeleteVector(result);
            return value;
        }
    }

    // The generated entry points again, with raw handles.
    internal partial class velarionPINVOKE
    {
        private const string Library = "VelarionCSharp";

        [DllImport(Library, EntryPoint = "CSharp_Velarion_delete_NVector3")]
        internal static extern void DeleteVector(IntPtr vector);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Matrix4x4_transformPosition")]
        internal static extern IntPtr Matrix4x4TransformPosition(IntPtr self, IntPtr position);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Matrix4x4_transformDirection")]
        internal static extern IntPtr Matrix4x4TransformDirection(IntPtr self, IntPtr direction);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Transform_transformPosition")]
        internal static extern IntPtr TransformTransformPosition(IntPtr self, IntPtr position);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Transform_transformDirection")]
        internal static extern IntPtr TransformTransformDirection(IntPtr self, IntPtr direction);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromDevicePositionToTrackingPosition")]
        internal static extern IntPtr AlignmentDevicePositionToTracking(IntPtr self, IntPtr position);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromDeviceDirectionToTrackingDirection")]
        internal static extern IntPtr AlignmentDeviceDirectionToTracking(IntPtr self, IntPtr direction);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromTrackingPositionToDevicePosition")]
        internal static extern IntPtr AlignmentTrackingPositionToDevice(IntPtr self, IntPtr position);

        [DllImport(Library, EntryPoint = "CSharp_Velarion_Alignment_fromTrackingDirectionToDeviceDirection")]
        internal static extern IntPtr AlignmentTrackingDirectionToDevice(IntPtr self, IntPtr direction);
    }
}
