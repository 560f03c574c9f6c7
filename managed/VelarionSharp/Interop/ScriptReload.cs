using System;
using System.Collections.Generic;
#if NET5_0_OR_GREATER
using System.Runtime.Loader;
#endif

namespace Velarion.Interop
{
    /// <summary>
    /// Frees every live library and emitter when the code that made them is
    /// unloaded: Unity's editor unloads its scripting domain on every compile
    /// and on entering play mode, while the device library's threads may still
    /// be calling installed callbacks. Freeing an emitter ends its emission
    /// thread (and releases its devices for the next domain); freeing a library
    /// removes its log callbacks. Both return only once no native thread is
    /// inside a callback, so none enters unloaded code afterwards.
    /// </summary>
    /// <remarks>
    /// Only unloadable code subscribes: a scripting domain other than the
    /// process's first (Mono), or a collectible load context (.NET). A plain
    /// application is left alone at exit.
    /// </remarks>
    internal static class ScriptReload
    {
        internal enum Kind
        {
            // Freed first: an emitter's last lines still reach the library's callbacks.
            Emitter,
            Library,
        }

        // Weak, and tracking resurrection: a forgotten object's handle may still
        // be waiting for its finalizer when the domain goes.
        private static readonly List<(WeakReference Handle, Kind Kind)> live = new List<(WeakReference, Kind)>();
        private static int pruneAt = 16;

        static ScriptReload()
        {
            if (!AppDomain.CurrentDomain.IsDefaultAppDomain()) AppDomain.CurrentDomain.DomainUnload += OnDomainUnload;
#if NET5_0_OR_GREATER
            AssemblyLoadContext context = AssemblyLoadContext.GetLoadContext(typeof(ScriptReload).Assembly);
            if (context != null && context.IsCollectible) context.Unloading += OnContextUnloading;
#endif
        }

        /// <summary>Frees <paramref name="handle"/> if still open when the code unloads.</summary>
        internal static void Track(NativeHandle handle, Kind kind)
        {
            if (handle == null || handle.IsInvalid) return;
            lock (live)
            {
                if (live.Count >= pruneAt)
                {
                    live.RemoveAll(entry => !(entry.Handle.Target is NativeHandle h) || h.IsClosed);
                    pruneAt = Math.Max(16, live.Count * 2);
                }
                live.Add((new WeakReference(handle, trackResurrection: true), kind));
            }
        }

        private static void OnDomainUnload(object sender, EventArgs e) => Release();

#if NET5_0_OR_GREATER
        private static void OnContextUnloading(AssemblyLoadContext context) => Release();
#endif

        /// <summary>Frees every tracked object still open: emitters, then libraries.</summary>
        internal static void Release()
        {
            List<(WeakReference Handle, Kind Kind)> tracked;
            lock (live)
            {
                tracked = new List<(WeakReference, Kind)>(live);
                live.Clear();
            }
            foreach (Kind kind in new[] { Kind.Emitter, Kind.Library })
            {
                foreach (var entry in tracked)
                {
                    if (entry.Kind != kind || !(entry.Handle.Target is NativeHandle handle)) continue;
                    try
                    {
                        // Borrowed handles close with it; a call in progress on
                        // another thread delays the free until it returns.
                        handle.Dispose();
                    }
                    catch (Exception failure)
                    {
                        // One object's failure must not leave the others running.
                        Console.Error.WriteLine($"VelarionSharp: freeing a {kind} on unload failed: {failure.Message}");
                    }
                }
            }
        }
    }
}
