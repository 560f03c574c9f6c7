using System;
using System.Runtime.InteropServices;

namespace Velarion
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
    }
}
