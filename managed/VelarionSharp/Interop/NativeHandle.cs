// Internal plumbing written before the public surface was annotated.
#nullable disable
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Threading;

namespace Velarion.Interop
{
    /// <summary>
    /// The one native handle every proxy holds. Owned handles free their object
    /// with the class's delete export; borrowed handles point into an owner and
    /// hold a reference on it, so the owner is freed only after the last
    /// borrowed handle let go, and is closed with it. Platform invoke adds a
    /// reference for the duration of each call, so a Dispose racing a call
    /// frees the object only when the call has returned.
    /// </summary>
    internal sealed class NativeHandle : SafeHandle
    {
        // Never closed: passes a null pointer, so the native null checks keep
        // reporting a missing argument.
        internal static readonly NativeHandle Null = new NativeHandle(IntPtr.Zero, null, null, null);

        private readonly Action<IntPtr> release;
        private Action<IntPtr, Action<IntPtr>> releaseThrough;
        private readonly NativeHandle owner;
        private readonly string leakName;
        private List<WeakReference<NativeHandle>> borrowers;
        private int pruneAt = 16;
        private Dictionary<object, Kept> kept;
        private int disposed;

        // Something installed into the native object that it may call: held
        // until replaced, or until the native object is gone.
        private struct Kept
        {
            public NativeHandle Handle;
            public object Target;
        }

        private NativeHandle(IntPtr pointer, Action<IntPtr> release, NativeHandle owner, string leakName)
            : base(IntPtr.Zero, true)
        {
            SetHandle(pointer);
            this.release = release;
            this.owner = owner;
            this.leakName = leakName;
        }

        public override bool IsInvalid => handle == IntPtr.Zero;

        /// <summary>The raw pointer; zero once released.</summary>
        internal IntPtr Handle => handle;

        internal bool IsOwned => release != null;

        /// <summary>
        /// Disposed (or released): refused to callers. The native object may
        /// live on while something the device library uses holds a reference.
        /// </summary>
        internal bool IsDisposed => Volatile.Read(ref disposed) != 0 || IsClosed;

        // For imports that still take a HandleRef: the pointer, with no
        // reference held for the call.
        public static implicit operator HandleRef(NativeHandle handle) =>
            new HandleRef(handle, handle.handle);

        /// <summary>
        /// Frees through <paramref name="through"/>, which is handed the
        /// pointer and the release to run (now or later).
        /// </summary>
        internal void SetRelease(Action<IntPtr, Action<IntPtr>> through) => releaseThrough = through;

        /// <summary>The handle this one is (ultimately) borrowed from, or itself.</summary>
        internal NativeHandle Root => owner == null ? this : owner.Root;

        /// <summary>An object this handle frees with <paramref name="release"/>.</summary>
        internal static NativeHandle Owned(IntPtr pointer, Action<IntPtr> release, object proxy)
        {
            string name = HandleLeaks.Enabled && pointer != IntPtr.Zero ? proxy.GetType().FullName : null;
            return new NativeHandle(pointer, pointer == IntPtr.Zero ? null : release, null, name);
        }

        /// <summary>A pointer into <paramref name="owner"/>'s object, valid while the owner is open.</summary>
        internal static NativeHandle Borrowed(IntPtr pointer, NativeHandle owner)
        {
            if (owner == null || owner.IsInvalid || pointer == IntPtr.Zero) return Unowned(pointer);
            if (owner.IsDisposed) throw new ObjectDisposedException(null, "The object to borrow from has been disposed.");
            bool added = false;
            owner.DangerousAddRef(ref added);
            var borrowed = new NativeHandle(pointer, null, owner, null);
            owner.AddBorrower(borrowed);
            return borrowed;
        }

        /// <summary>A handle for a proxy constructor to adopt.</summary>
        internal readonly struct Made
        {
            internal readonly NativeHandle Handle;
            internal Made(NativeHandle handle) => Handle = handle;
        }

        internal static Made Borrow(IntPtr pointer, NativeHandle owner) => new Made(Borrowed(pointer, owner));

        /// <summary>Owned by a derived proxy (or not owned, without <paramref name="release"/>).</summary>
        internal static Made Own(IntPtr pointer, Action<IntPtr> release, Type proxy)
        {
            if (release == null || pointer == IntPtr.Zero) return new Made(Unowned(pointer));
            return new Made(new NativeHandle(pointer, release, null, HandleLeaks.Enabled ? proxy.FullName : null));
        }

        // One per thread, pointed at each object a release frees: a release
        // allocates nothing. (A release that runs another one on the same
        // thread is fine: the pointer is read when the call starts.)
        [ThreadStatic] private static NativeHandle releasing;

        /// <summary>A handle for the delete export of the object at <paramref name="pointer"/>.</summary>
        internal static NativeHandle ForRelease(IntPtr pointer)
        {
            var scratch = releasing;
            if (scratch == null)
            {
                releasing = scratch = Unowned(IntPtr.Zero);
                GC.SuppressFinalize(scratch);
            }
            scratch.SetHandle(pointer);
            return scratch;
        }

        /// <summary>A pointer nobody frees (the device library's, or a caller's buffer).</summary>
        internal static NativeHandle Unowned(IntPtr pointer) => new NativeHandle(pointer, null, null, null);

        /// <summary>The exception a disposed proxy answers with.</summary>
        internal static ObjectDisposedException Disposed(object proxy) =>
            new ObjectDisposedException(proxy.GetType().Name,
                $"This {proxy.GetType().Name} has been disposed, or the object it was borrowed from has been disposed or changed.");

        private void AddBorrower(NativeHandle borrowed)
        {
            lock (this)
            {
                borrowers ??= new List<WeakReference<NativeHandle>>();
                if (borrowers.Count >= pruneAt)
                {
                    borrowers.RemoveAll(w => !w.TryGetTarget(out var b) || b.IsClosed);
                    pruneAt = Math.Max(16, borrowers.Count * 2);
                }
                borrowers.Add(new WeakReference<NativeHandle>(borrowed));
            }
        }

        /// <summary>
        /// Closes every handle borrowed from this one: after a change that may
        /// move or destroy the objects they point at, or when this one closes.
        /// </summary>
        internal void CloseBorrowers()
        {
            List<WeakReference<NativeHandle>> closing;
            lock (this)
            {
                closing = borrowers;
                borrowers = null;
                pruneAt = 16;
            }
            if (closing == null) return;
            foreach (var weak in closing)
            {
                if (weak.TryGetTarget(out var borrowed)) borrowed.Dispose();
            }
        }

        /// <summary>
        /// Holds <paramref name="value"/> (and its managed object) under
        /// <paramref name="key"/> until replaced or until this object is freed;
        /// call it once the native object holds the new value, so the one it
        /// replaces is let go only when the native side no longer uses it.
        /// </summary>
        internal void Keep(object key, NativeHandle value, object target)
        {
            Hold(value);
            KeepHeld(key, value, target);
        }

        /// <summary>
        /// A reference on <paramref name="value"/> taken before it is handed to
        /// the device library, so that a Dispose on another thread cannot free
        /// it between the native call and <see cref="KeepHeld"/>.
        /// </summary>
        internal static void Hold(NativeHandle value)
        {
            bool added = false;
            value?.DangerousAddRef(ref added);
        }

        internal static void Unhold(NativeHandle value) => value?.DangerousRelease();

        /// <summary>As <see cref="Keep"/>, for a value already held.</summary>
        internal void KeepHeld(object key, NativeHandle value, object target)
        {
            Kept previous;
            lock (this)
            {
                kept ??= new Dictionary<object, Kept>();
                kept.TryGetValue(key, out previous);
                if (value == null) kept.Remove(key);
                else kept[key] = new Kept { Handle = value, Target = target };
            }
            previous.Handle?.DangerousRelease();
        }

        /// <summary>Hands everything kept over to <paramref name="other"/> (a move of the native object).</summary>
        internal void MoveKeptTo(NativeHandle other)
        {
            Dictionary<object, Kept> moving;
            lock (this)
            {
                moving = kept;
                kept = null;
            }
            if (moving == null) return;
            lock (other)
            {
                other.kept ??= new Dictionary<object, Kept>();
                foreach (var entry in moving)
                {
                    other.kept.TryGetValue(entry.Key, out var replaced);
                    other.kept[entry.Key] = entry.Value;
                    replaced.Handle?.DangerousRelease();
                }
            }
        }

        internal object KeptTarget(object key)
        {
            lock (this) return kept != null && kept.TryGetValue(key, out var k) ? k.Target : null;
        }

        protected override void Dispose(bool disposing)
        {
            // Reached from the finalizer: nobody disposed an object this handle owns.
            if (!disposing && leakName != null) HandleLeaks.Record(leakName);
            Volatile.Write(ref disposed, 1);
            base.Dispose(disposing);
            if (disposing) CloseBorrowers();
        }

        protected override bool ReleaseHandle()
        {
            if (release != null && releaseThrough != null)
            {
                // The release may run later: what this object keeps goes with it.
                releaseThrough(handle, FreeThenLetGo);
            }
            else
            {
                FreeThenLetGo(handle);
            }
            return true;
        }

        private void FreeThenLetGo(IntPtr pointer)
        {
            try
            {
                release?.Invoke(pointer);
            }
            finally
            {
                // Only now can nothing native call what was installed.
                Dictionary<object, Kept> held;
                lock (this)
                {
                    held = kept;
                    kept = null;
                }
                if (held != null)
                {
                    foreach (var k in held.Values) k.Handle?.DangerousRelease();
                }
                owner?.DangerousRelease();
            }
        }
    }

    /// <summary>
    /// The leak-identifying mode: while on, the type of every owned handle that
    /// reached the finalizer instead of Dispose is recorded.
    /// </summary>
    internal static class HandleLeaks
    {
        private static readonly Dictionary<string, int> leaked = new Dictionary<string, int>();
        private static int enabled;

        internal static bool Enabled
        {
            get => Volatile.Read(ref enabled) != 0;
            set => Volatile.Write(ref enabled, value ? 1 : 0);
        }

        internal static void Record(string typeName)
        {
            lock (leaked)
            {
                leaked.TryGetValue(typeName, out int count);
                leaked[typeName] = count + 1;
            }
        }

        /// <summary>What leaked since the last call, by type, and forgets it.</summary>
        internal static Dictionary<string, int> Take()
        {
            lock (leaked)
            {
                var result = new Dictionary<string, int>(leaked);
                leaked.Clear();
                return result;
            }
        }
    }
}
