using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Threading;

namespace Velarion.Interop
{
    /// <summary>
    /// Marks a static method that native code calls through a function pointer.
    /// IL2CPP looks for an attribute of this name, wherever it is declared.
    /// </summary>
    [AttributeUsage(AttributeTargets.Method)]
    internal sealed class MonoPInvokeCallbackAttribute : Attribute
    {
        public MonoPInvokeCallbackAttribute(Type type) => Type = type;

        public Type Type { get; }
    }

    /// <summary>Every delegate handed to native code, so that it stays reachable and can be inspected.</summary>
    internal static class NativeCallbacks
    {
        private static readonly List<Delegate> registered = new List<Delegate>();

        internal static T Register<T>(T callback) where T : Delegate
        {
            if (callback == null) return null;
            lock (registered)
            {
                if (!registered.Contains(callback)) registered.Add(callback);
            }
            return callback;
        }

        internal static Delegate[] Registered
        {
            get
            {
                lock (registered) return registered.ToArray();
            }
        }
    }

    /// <summary>
    /// Connects callback wrappers to their directors through static entries,
    /// and frees a wrapper's native object only once no director frame of the
    /// device library can still be using it.
    /// </summary>
    // The entries themselves, one per slot and director method, and SlotCount
    // are generated into the build folder by managed/DirectorSlots.cmake.
    internal static partial class DirectorEntries
    {
        // Weak: an installed wrapper is held by whoever installed it, and an
        // uninstalled one may be collected (and then freed) like any object.
        private sealed class Slots
        {
            private readonly GCHandle[] targets = new GCHandle[SlotCount];
            private readonly Stack<int> free = new Stack<int>();
            private readonly string kind;

            internal Slots(string kind)
            {
                this.kind = kind;
                for (int i = SlotCount - 1; i >= 0; --i) free.Push(i);
            }

            internal int Take(object target)
            {
                for (int attempt = 0; ; ++attempt)
                {
                    lock (free)
                    {
                        if (free.Count > 0)
                        {
                            int slot = free.Pop();
                            targets[slot] = GCHandle.Alloc(target, GCHandleType.Weak);
                            return slot;
                        }
                    }
                    // Not from inside a director call: a finalizer may be waiting
                    // for this very thread (an emitter freeing its own thread).
                    if (attempt == 1 || depth > 0)
                    {
                        throw new InvalidOperationException(
                            $"At most {SlotCount} {kind} can exist at once; dispose the ones no longer needed.");
                    }
                    // Forgotten wrappers give their slots back when finalized.
                    GC.Collect();
                    GC.WaitForPendingFinalizers();
                }
            }

            internal object Target(int slot)
            {
                GCHandle target = targets[slot];
                return target.IsAllocated ? target.Target : null;
            }

            internal void Free(int slot)
            {
                lock (free)
                {
                    if (targets[slot].IsAllocated) targets[slot].Free();
                    free.Push(slot);
                }
            }
        }

        private static readonly Slots logSlots = new Slots("log callbacks");
        private static readonly Slots emissionSlots = new Slots("emission callbacks");

        // Director calls in progress on this thread.
        [ThreadStatic] private static int depth;

        // Wrappers released on this thread while one of its director calls was
        // in progress: the device library's frame that called it may still use
        // the native object after the managed call returns.
        [ThreadStatic] private static PendingFrees pending;

        private sealed class PendingFrees
        {
            internal readonly List<(IntPtr Pointer, Action<IntPtr> Release, Slots Slots, int Slot, bool Emission)> Items =
                new List<(IntPtr, Action<IntPtr>, Slots, int, bool)>();

            // The thread has ended, and with it every frame that could use them.
            ~PendingFrees() => Run(this, all: true);
        }

        private static void Run(PendingFrees frees, bool all)
        {
            if (frees == null || frees.Items.Count == 0) return;
            var items = frees.Items.ToArray();
            frees.Items.Clear();
            foreach (var item in items)
            {
                // A log director's frame ends with its managed call; the emission
                // bridge uses its wrapper after the call, until its next interval.
                if (!all && item.Emission)
                {
                    frees.Items.Add(item);
                    continue;
                }
                Free(item.Pointer, item.Release, item.Slots, item.Slot);
            }
            if (all) GC.SuppressFinalize(frees);
        }

        private static void Free(IntPtr pointer, Action<IntPtr> release, Slots slots, int slot)
        {
            try
            {
                release(pointer);
            }
            finally
            {
                slots.Free(slot);
            }
        }

        // Called first by every entry: at depth 0 no frame of the device library
        // that entered this thread earlier is still running. `emission` is true
        // for the emission bridge's entries, which run one interval after another.
        private static void Entering(bool emission)
        {
            if (depth == 0 && pending != null && pending.Items.Count > 0)
            {
                if (emission) Run(pending, all: true);
                else Run(pending, all: false);
                if (pending.Items.Count == 0) pending = null;
            }
            ++depth;
        }

        // Frees waiting on this thread (for tests).
        internal static int PendingOnThisThread => pending?.Items.Count ?? 0;

        private static void Release(IntPtr pointer, Action<IntPtr> release, Slots slots, int slot, bool emission)
        {
            if (depth > 0)
            {
                pending ??= new PendingFrees();
                pending.Items.Add((pointer, release, slots, slot, emission));
                return;
            }
            Free(pointer, release, slots, slot);
        }

        /// <summary>
        /// For objects that own a device-library thread (emitters): freed on
        /// another thread when released inside a director call, since freeing
        /// waits for the thread that may be the one making the call. Until that
        /// thread frees it the object lives on, so <paramref name="quiesce"/>
        /// (which must not wait for the object's own thread) runs first, on the
        /// releasing thread: what it stops has stopped when the release returns.
        /// </summary>
        internal static void FreeOffDirectorThreads(NativeHandle handle, Action<IntPtr> quiesce = null) =>
            handle.SetRelease((pointer, release) => ReleaseOffDirectorThreads(pointer, release, quiesce));

        private static void ReleaseOffDirectorThreads(IntPtr pointer, Action<IntPtr> release, Action<IntPtr> quiesce)
        {
            if (depth == 0)
            {
                release(pointer);
                return;
            }
            quiesce?.Invoke(pointer);
            ThreadPool.QueueUserWorkItem(_ => release(pointer));
        }

        /// <summary>
        /// Uninstalls a streaming emitter's callback: returns at once inside
        /// that callback, and otherwise once the callback in progress returned,
        /// so the interval in progress is the last the callback is handed.
        /// </summary>
        internal static void UninstallEmissionCallback(IntPtr emitter) =>
            velarion_timepointstreamingPINVOKE.TimePointStreamingEmitter_setManagedEmissionCallback(
                NativeHandle.ForRelease(emitter), NativeHandle.Null);

        internal static void ConnectLogging(DelegateLoggingCallback wrapper)
        {
            int slot = logSlots.Take(wrapper);
            wrapper.SwigHandle.SetRelease((pointer, release) => Release(pointer, release, logSlots, slot, emission: false));
            velarionPINVOKE.LoggingCallbackWrapper_director_connect(wrapper.swigCPtr,
                NativeCallbacks.Register(logEntries[slot]));
        }

        internal static void ConnectEmission(EmissionCallback wrapper, bool suspensionOverridden, bool querySuspensionOverridden)
        {
            int slot = emissionSlots.Take(wrapper);
            wrapper.SwigHandle.SetRelease((pointer, release) => Release(pointer, release, emissionSlots, slot, emission: true));
            // Without overrides the suspension flag stays native, and an interval
            // costs no extra managed call.
            velarion_timepointstreamingPINVOKE.EmissionCallbackWrapper_director_connect(wrapper.swigCPtr,
                suspensionOverridden ? NativeCallbacks.Register(setSuspendedEntries[slot]) : null,
                querySuspensionOverridden ? NativeCallbacks.Register(isSuspendedEntries[slot]) : null,
                NativeCallbacks.Register(emitEntries[slot]));
        }

        private static void Log(int slot, IntPtr message, uint level, uint sequence, IntPtr area)
        {
            Entering(emission: false);
            try
            {
                // The texts are ours to free, whoever reads them.
                string text = NativeStrings.Take(message);
                string areaText = NativeStrings.Take(area);
                (logSlots.Target(slot) as DelegateLoggingCallback)?.Deliver(text, level, sequence, areaText);
            }
            finally
            {
                --depth;
            }
        }

        private static void SetSuspended(int slot, bool suspended)
        {
            Entering(emission: true);
            try
            {
                (emissionSlots.Target(slot) as EmissionCallback)?.SetSuspendedFromNative(suspended);
            }
            finally
            {
                --depth;
            }
        }

        private static bool IsSuspended(int slot)
        {
            Entering(emission: true);
            try
            {
                return emissionSlots.Target(slot) is EmissionCallback callback && callback.IsSuspendedFromNative();
            }
            finally
            {
                --depth;
            }
        }

        private static void Emit(int slot, uint timePointCount, uint controlPointCount, uint stride,
                                 IntPtr callbackTime, IntPtr timePoints, IntPtr records)
        {
            Entering(emission: true);
            try
            {
                (emissionSlots.Target(slot) as EmissionCallback)?.Deliver(
                    timePointCount, controlPointCount, stride, callbackTime, timePoints, records);
            }
            finally
            {
                --depth;
            }
        }
    }
}
