using System;
using System.Runtime.InteropServices;

namespace Velarion.Raw
{
    // The text constants' getters: SWIG leaves them out once a constant's value
    // is given (device.i), and their strings arrive through the string callback.
    internal partial class velarionPINVOKE
    {
        [DllImport("VelarionCSharp", EntryPoint = "CSharp_Velarion_VL_SDK_VERSION_get")]
        internal static extern IntPtr VL_SDK_VERSION_get();

        [DllImport("VelarionCSharp", EntryPoint = "CSharp_Velarion_VL_SDK_VERSION_LONG_get")]
        internal static extern IntPtr VL_SDK_VERSION_LONG_get();

        [DllImport("VelarionCSharp", EntryPoint = "CSharp_Velarion_VL_SDK_BUILD_DATE_get")]
        internal static extern IntPtr VL_SDK_BUILD_DATE_get();

        [DllImport("VelarionCSharp", EntryPoint = "CSharp_Velarion_VL_SDK_PLATFORM_NAME_get")]
        internal static extern IntPtr VL_SDK_PLATFORM_NAME_get();

        [DllImport("VelarionCSharp", EntryPoint = "CSharp_Velarion_VL_SDK_VARIANT_get")]
        internal static extern IntPtr VL_SDK_VARIANT_get();

        // Reading the field runs the registration of the failure and string callbacks.
        internal static void EnsureRegistered()
        {
            if (!swigRegistered) throw new InvalidOperationException("the interop callbacks are not registered");
        }
    }

    // A size the process cannot have is refused before the native list would
    // abort on a failed allocation.
    internal partial class StringList : System.Collections.Generic.IEnumerable<string>
    {
        internal static void CheckSize(int capacity, string parameter) =>
            NativeSize.Check(capacity, NativeSize.StringBytes(null), parameter);

        internal static void CheckRepeat(string? value, int count) =>
            NativeSize.Check(count, NativeSize.StringBytes(value), nameof(count));
    }

    internal partial class DeviceInfoList : System.Collections.Generic.IEnumerable<DeviceInfo>
    {
        internal static void CheckSize(int capacity, string parameter) => NativeSize.Check(capacity, IntPtr.Size, parameter);

        internal static void CheckRepeat(DeviceInfo value, int count) => NativeSize.Check(count, IntPtr.Size + 64, nameof(count));
    }
}
