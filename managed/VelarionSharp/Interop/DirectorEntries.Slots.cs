using System;
using Velarion;

namespace Velarion.Interop
{
    // One static entry per slot and per director method. The directors hand
    // the device library plain function pointers and get no object back with
    // a call, and IL2CPP and NativeAOT take only static methods: each entry
    // finds its managed object through its slot. The entries are uniform; the
    // count is DirectorEntries.SlotCount.
    internal static partial class DirectorEntries
    {
        internal const int SlotCount = 64;

        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log0(IntPtr m, uint l, uint s, IntPtr a) => Log(0, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log1(IntPtr m, uint l, uint s, IntPtr a) => Log(1, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log2(IntPtr m, uint l, uint s, IntPtr a) => Log(2, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log3(IntPtr m, uint l, uint s, IntPtr a) => Log(3, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log4(IntPtr m, uint l, uint s, IntPtr a) => Log(4, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log5(IntPtr m, uint l, uint s, IntPtr a) => Log(5, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log6(IntPtr m, uint l, uint s, IntPtr a) => Log(6, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log7(IntPtr m, uint l, uint s, IntPtr a) => Log(7, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log8(IntPtr m, uint l, uint s, IntPtr a) => Log(8, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log9(IntPtr m, uint l, uint s, IntPtr a) => Log(9, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log10(IntPtr m, uint l, uint s, IntPtr a) => Log(10, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log11(IntPtr m, uint l, uint s, IntPtr a) => Log(11, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log12(IntPtr m, uint l, uint s, IntPtr a) => Log(12, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log13(IntPtr m, uint l, uint s, IntPtr a) => Log(13, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log14(IntPtr m, uint l, uint s, IntPtr a) => Log(14, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log15(IntPtr m, uint l, uint s, IntPtr a) => Log(15, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log16(IntPtr m, uint l, uint s, IntPtr a) => Log(16, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log17(IntPtr m, uint l, uint s, IntPtr a) => Log(17, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log18(IntPtr m, uint l, uint s, IntPtr a) => Log(18, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log19(IntPtr m, uint l, uint s, IntPtr a) => Log(19, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log20(IntPtr m, uint l, uint s, IntPtr a) => Log(20, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log21(IntPtr m, uint l, uint s, IntPtr a) => Log(21, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log22(IntPtr m, uint l, uint s, IntPtr a) => Log(22, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log23(IntPtr m, uint l, uint s, IntPtr a) => Log(23, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log24(IntPtr m, uint l, uint s, IntPtr a) => Log(24, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log25(IntPtr m, uint l, uint s, IntPtr a) => Log(25, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log26(IntPtr m, uint l, uint s, IntPtr a) => Log(26, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log27(IntPtr m, uint l, uint s, IntPtr a) => Log(27, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log28(IntPtr m, uint l, uint s, IntPtr a) => Log(28, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log29(IntPtr m, uint l, uint s, IntPtr a) => Log(29, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log30(IntPtr m, uint l, uint s, IntPtr a) => Log(30, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log31(IntPtr m, uint l, uint s, IntPtr a) => Log(31, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log32(IntPtr m, uint l, uint s, IntPtr a) => Log(32, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log33(IntPtr m, uint l, uint s, IntPtr a) => Log(33, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log34(IntPtr m, uint l, uint s, IntPtr a) => Log(34, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log35(IntPtr m, uint l, uint s, IntPtr a) => Log(35, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log36(IntPtr m, uint l, uint s, IntPtr a) => Log(36, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log37(IntPtr m, uint l, uint s, IntPtr a) => Log(37, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log38(IntPtr m, uint l, uint s, IntPtr a) => Log(38, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log39(IntPtr m, uint l, uint s, IntPtr a) => Log(39, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log40(IntPtr m, uint l, uint s, IntPtr a) => Log(40, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log41(IntPtr m, uint l, uint s, IntPtr a) => Log(41, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log42(IntPtr m, uint l, uint s, IntPtr a) => Log(42, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log43(IntPtr m, uint l, uint s, IntPtr a) => Log(43, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log44(IntPtr m, uint l, uint s, IntPtr a) => Log(44, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log45(IntPtr m, uint l, uint s, IntPtr a) => Log(45, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log46(IntPtr m, uint l, uint s, IntPtr a) => Log(46, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log47(IntPtr m, uint l, uint s, IntPtr a) => Log(47, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log48(IntPtr m, uint l, uint s, IntPtr a) => Log(48, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log49(IntPtr m, uint l, uint s, IntPtr a) => Log(49, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log50(IntPtr m, uint l, uint s, IntPtr a) => Log(50, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log51(IntPtr m, uint l, uint s, IntPtr a) => Log(51, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log52(IntPtr m, uint l, uint s, IntPtr a) => Log(52, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log53(IntPtr m, uint l, uint s, IntPtr a) => Log(53, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log54(IntPtr m, uint l, uint s, IntPtr a) => Log(54, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log55(IntPtr m, uint l, uint s, IntPtr a) => Log(55, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log56(IntPtr m, uint l, uint s, IntPtr a) => Log(56, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log57(IntPtr m, uint l, uint s, IntPtr a) => Log(57, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log58(IntPtr m, uint l, uint s, IntPtr a) => Log(58, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log59(IntPtr m, uint l, uint s, IntPtr a) => Log(59, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log60(IntPtr m, uint l, uint s, IntPtr a) => Log(60, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log61(IntPtr m, uint l, uint s, IntPtr a) => Log(61, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log62(IntPtr m, uint l, uint s, IntPtr a) => Log(62, m, l, s, a);
        [MonoPInvokeCallback(typeof(LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0))]
        private static void Log63(IntPtr m, uint l, uint s, IntPtr a) => Log(63, m, l, s, a);

        private static readonly LoggingCallbackWrapper.SwigDelegateLoggingCallbackWrapper_0[] logEntries =
        {
            Log0, Log1, Log2, Log3, Log4, Log5, Log6, Log7,
            Log8, Log9, Log10, Log11, Log12, Log13, Log14, Log15,
            Log16, Log17, Log18, Log19, Log20, Log21, Log22, Log23,
            Log24, Log25, Log26, Log27, Log28, Log29, Log30, Log31,
            Log32, Log33, Log34, Log35, Log36, Log37, Log38, Log39,
            Log40, Log41, Log42, Log43, Log44, Log45, Log46, Log47,
            Log48, Log49, Log50, Log51, Log52, Log53, Log54, Log55,
            Log56, Log57, Log58, Log59, Log60, Log61, Log62, Log63,
        };

        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended0(bool suspended) => SetSuspended(0, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended1(bool suspended) => SetSuspended(1, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended2(bool suspended) => SetSuspended(2, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended3(bool suspended) => SetSuspended(3, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended4(bool suspended) => SetSuspended(4, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended5(bool suspended) => SetSuspended(5, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended6(bool suspended) => SetSuspended(6, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended7(bool suspended) => SetSuspended(7, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended8(bool suspended) => SetSuspended(8, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended9(bool suspended) => SetSuspended(9, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended10(bool suspended) => SetSuspended(10, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended11(bool suspended) => SetSuspended(11, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended12(bool suspended) => SetSuspended(12, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended13(bool suspended) => SetSuspended(13, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended14(bool suspended) => SetSuspended(14, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended15(bool suspended) => SetSuspended(15, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended16(bool suspended) => SetSuspended(16, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended17(bool suspended) => SetSuspended(17, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended18(bool suspended) => SetSuspended(18, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended19(bool suspended) => SetSuspended(19, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended20(bool suspended) => SetSuspended(20, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended21(bool suspended) => SetSuspended(21, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended22(bool suspended) => SetSuspended(22, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended23(bool suspended) => SetSuspended(23, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended24(bool suspended) => SetSuspended(24, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended25(bool suspended) => SetSuspended(25, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended26(bool suspended) => SetSuspended(26, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended27(bool suspended) => SetSuspended(27, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended28(bool suspended) => SetSuspended(28, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended29(bool suspended) => SetSuspended(29, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended30(bool suspended) => SetSuspended(30, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended31(bool suspended) => SetSuspended(31, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended32(bool suspended) => SetSuspended(32, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended33(bool suspended) => SetSuspended(33, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended34(bool suspended) => SetSuspended(34, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended35(bool suspended) => SetSuspended(35, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended36(bool suspended) => SetSuspended(36, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended37(bool suspended) => SetSuspended(37, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended38(bool suspended) => SetSuspended(38, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended39(bool suspended) => SetSuspended(39, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended40(bool suspended) => SetSuspended(40, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended41(bool suspended) => SetSuspended(41, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended42(bool suspended) => SetSuspended(42, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended43(bool suspended) => SetSuspended(43, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended44(bool suspended) => SetSuspended(44, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended45(bool suspended) => SetSuspended(45, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended46(bool suspended) => SetSuspended(46, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended47(bool suspended) => SetSuspended(47, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended48(bool suspended) => SetSuspended(48, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended49(bool suspended) => SetSuspended(49, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended50(bool suspended) => SetSuspended(50, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended51(bool suspended) => SetSuspended(51, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended52(bool suspended) => SetSuspended(52, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended53(bool suspended) => SetSuspended(53, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended54(bool suspended) => SetSuspended(54, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended55(bool suspended) => SetSuspended(55, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended56(bool suspended) => SetSuspended(56, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended57(bool suspended) => SetSuspended(57, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended58(bool suspended) => SetSuspended(58, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended59(bool suspended) => SetSuspended(59, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended60(bool suspended) => SetSuspended(60, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended61(bool suspended) => SetSuspended(61, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended62(bool suspended) => SetSuspended(62, suspended);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0))]
        private static void SetSuspended63(bool suspended) => SetSuspended(63, suspended);

        private static readonly EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_0[] setSuspendedEntries =
        {
            SetSuspended0, SetSuspended1, SetSuspended2, SetSuspended3, SetSuspended4, SetSuspended5, SetSuspended6, SetSuspended7,
            SetSuspended8, SetSuspended9, SetSuspended10, SetSuspended11, SetSuspended12, SetSuspended13, SetSuspended14, SetSuspended15,
            SetSuspended16, SetSuspended17, SetSuspended18, SetSuspended19, SetSuspended20, SetSuspended21, SetSuspended22, SetSuspended23,
            SetSuspended24, SetSuspended25, SetSuspended26, SetSuspended27, SetSuspended28, SetSuspended29, SetSuspended30, SetSuspended31,
            SetSuspended32, SetSuspended33, SetSuspended34, SetSuspended35, SetSuspended36, SetSuspended37, SetSuspended38, SetSuspended39,
            SetSuspended40, SetSuspended41, SetSuspended42, SetSuspended43, SetSuspended44, SetSuspended45, SetSuspended46, SetSuspended47,
            SetSuspended48, SetSuspended49, SetSuspended50, SetSuspended51, SetSuspended52, SetSuspended53, SetSuspended54, SetSuspended55,
            SetSuspended56, SetSuspended57, SetSuspended58, SetSuspended59, SetSuspended60, SetSuspended61, SetSuspended62, SetSuspended63,
        };

        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended0() => IsSuspended(0);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended1() => IsSuspended(1);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended2() => IsSuspended(2);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended3() => IsSuspended(3);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended4() => IsSuspended(4);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended5() => IsSuspended(5);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended6() => IsSuspended(6);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended7() => IsSuspended(7);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended8() => IsSuspended(8);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended9() => IsSuspended(9);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended10() => IsSuspended(10);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended11() => IsSuspended(11);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended12() => IsSuspended(12);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended13() => IsSuspended(13);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended14() => IsSuspended(14);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended15() => IsSuspended(15);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended16() => IsSuspended(16);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended17() => IsSuspended(17);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended18() => IsSuspended(18);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended19() => IsSuspended(19);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended20() => IsSuspended(20);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended21() => IsSuspended(21);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended22() => IsSuspended(22);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended23() => IsSuspended(23);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended24() => IsSuspended(24);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended25() => IsSuspended(25);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended26() => IsSuspended(26);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended27() => IsSuspended(27);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended28() => IsSuspended(28);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended29() => IsSuspended(29);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended30() => IsSuspended(30);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended31() => IsSuspended(31);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended32() => IsSuspended(32);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended33() => IsSuspended(33);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended34() => IsSuspended(34);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended35() => IsSuspended(35);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended36() => IsSuspended(36);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended37() => IsSuspended(37);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended38() => IsSuspended(38);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended39() => IsSuspended(39);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended40() => IsSuspended(40);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended41() => IsSuspended(41);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended42() => IsSuspended(42);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended43() => IsSuspended(43);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended44() => IsSuspended(44);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended45() => IsSuspended(45);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended46() => IsSuspended(46);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended47() => IsSuspended(47);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended48() => IsSuspended(48);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended49() => IsSuspended(49);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended50() => IsSuspended(50);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended51() => IsSuspended(51);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended52() => IsSuspended(52);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended53() => IsSuspended(53);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended54() => IsSuspended(54);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended55() => IsSuspended(55);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended56() => IsSuspended(56);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended57() => IsSuspended(57);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended58() => IsSuspended(58);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended59() => IsSuspended(59);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended60() => IsSuspended(60);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended61() => IsSuspended(61);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended62() => IsSuspended(62);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1))]
        private static bool IsSuspended63() => IsSuspended(63);

        private static readonly EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_1[] isSuspendedEntries =
        {
            IsSuspended0, IsSuspended1, IsSuspended2, IsSuspended3, IsSuspended4, IsSuspended5, IsSuspended6, IsSuspended7,
            IsSuspended8, IsSuspended9, IsSuspended10, IsSuspended11, IsSuspended12, IsSuspended13, IsSuspended14, IsSuspended15,
            IsSuspended16, IsSuspended17, IsSuspended18, IsSuspended19, IsSuspended20, IsSuspended21, IsSuspended22, IsSuspended23,
            IsSuspended24, IsSuspended25, IsSuspended26, IsSuspended27, IsSuspended28, IsSuspended29, IsSuspended30, IsSuspended31,
            IsSuspended32, IsSuspended33, IsSuspended34, IsSuspended35, IsSuspended36, IsSuspended37, IsSuspended38, IsSuspended39,
            IsSuspended40, IsSuspended41, IsSuspended42, IsSuspended43, IsSuspended44, IsSuspended45, IsSuspended46, IsSuspended47,
            IsSuspended48, IsSuspended49, IsSuspended50, IsSuspended51, IsSuspended52, IsSuspended53, IsSuspended54, IsSuspended55,
            IsSuspended56, IsSuspended57, IsSuspended58, IsSuspended59, IsSuspended60, IsSuspended61, IsSuspended62, IsSuspended63,
        };

        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit0(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(0, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit1(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(1, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit2(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(2, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit3(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(3, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit4(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(4, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit5(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(5, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit6(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(6, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit7(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(7, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit8(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(8, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit9(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(9, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit10(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(10, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit11(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(11, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit12(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(12, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit13(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(13, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit14(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(14, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit15(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(15, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit16(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(16, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit17(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(17, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit18(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(18, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit19(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(19, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit20(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(20, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit21(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(21, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit22(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(22, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit23(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(23, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit24(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(24, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit25(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(25, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit26(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(26, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit27(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(27, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit28(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(28, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit29(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(29, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit30(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(30, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit31(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(31, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit32(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(32, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit33(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(33, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit34(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(34, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit35(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(35, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit36(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(36, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit37(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(37, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit38(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(38, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit39(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(39, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit40(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(40, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit41(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(41, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit42(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(42, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit43(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(43, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit44(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(44, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit45(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(45, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit46(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(46, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit47(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(47, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit48(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(48, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit49(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(49, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit50(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(50, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit51(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(51, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit52(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(52, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit53(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(53, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit54(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(54, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit55(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(55, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit56(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(56, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit57(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(57, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit58(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(58, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit59(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(59, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit60(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(60, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit61(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(61, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit62(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(62, n, m, s, c, t, r);
        [MonoPInvokeCallback(typeof(EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2))]
        private static void Emit63(uint n, uint m, uint s, IntPtr c, IntPtr t, IntPtr r) => Emit(63, n, m, s, c, t, r);

        private static readonly EmissionCallbackWrapper.SwigDelegateEmissionCallbackWrapper_2[] emitEntries =
        {
            Emit0, Emit1, Emit2, Emit3, Emit4, Emit5, Emit6, Emit7,
            Emit8, Emit9, Emit10, Emit11, Emit12, Emit13, Emit14, Emit15,
            Emit16, Emit17, Emit18, Emit19, Emit20, Emit21, Emit22, Emit23,
            Emit24, Emit25, Emit26, Emit27, Emit28, Emit29, Emit30, Emit31,
            Emit32, Emit33, Emit34, Emit35, Emit36, Emit37, Emit38, Emit39,
            Emit40, Emit41, Emit42, Emit43, Emit44, Emit45, Emit46, Emit47,
            Emit48, Emit49, Emit50, Emit51, Emit52, Emit53, Emit54, Emit55,
            Emit56, Emit57, Emit58, Emit59, Emit60, Emit61, Emit62, Emit63,
        };
    }
}
