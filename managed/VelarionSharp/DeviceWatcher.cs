using System;
using System.Collections.Generic;
using System.Threading;

namespace Velarion
{
    /// <summary>A device was connected or disconnected (<see cref="DeviceWatcher.ConnectionChanged"/>).</summary>
    public sealed class DeviceConnectionChangedEventArgs : EventArgs
    {
        /// <summary>Describes one change.</summary>
        /// <param name="identifier">The device's identifier.</param>
        /// <param name="isConnected">Whether it is connected now.</param>
        /// <exception cref="ArgumentNullException"><paramref name="identifier"/> is null.</exception>
        public DeviceConnectionChangedEventArgs(string identifier, bool isConnected)
        {
            Identifier = identifier ?? throw new ArgumentNullException(nameof(identifier));
            IsConnected = isConnected;
        }

        /// <summary>The device's identifier.</summary>
        public string Identifier { get; }

        /// <summary>True: the device was connected (plugged in, or appeared connected); false: it was disconnected or vanished.</summary>
        public bool IsConnected { get; }
    }

    /// <summary>
    /// Tells when devices are connected or disconnected, without reading the
    /// log: it asks <see cref="VelarionLibrary.IsDeviceConnected"/> about every
    /// device of <see cref="VelarionLibrary.DeviceIdentifiers"/> at a chosen
    /// interval and raises <see cref="ConnectionChanged"/> for each change. It
    /// only polls the library's public queries, so it works with the vendor's
    /// device library as with the emulator. Dispose it before the library.
    /// </summary>
    /// <remarks>
    /// Events are raised on a thread-pool thread, one poll at a time, in the
    /// order the changes were seen. A change shorter than the interval may go
    /// unseen. An exception thrown by a handler, or by the library (disposed
    /// under the watcher), goes to <see cref="PollFailed"/>; the watcher keeps
    /// polling.
    /// </remarks>
    public sealed class DeviceWatcher : IDisposable
    {
        private readonly VelarionLibrary library;
        private readonly object gate = new object();
        private readonly Timer timer;
        private Dictionary<string, bool> known = new Dictionary<string, bool>();
        private bool running, disposed, polling;
        private Thread pollingThread;

        /// <summary>A watcher of <paramref name="library"/>'s devices; call <see cref="Start"/> after subscribing.</summary>
        /// <param name="library">The library to ask; the watcher does not own it.</param>
        /// <param name="interval">How often to ask, from 1 ms to 1 hour.</param>
        /// <exception cref="ArgumentNullException"><paramref name="library"/> is null.</exception>
        /// <exception cref="ArgumentOutOfRangeException"><paramref name="interval"/> is outside 1 ms to 1 hour.</exception>
        public DeviceWatcher(VelarionLibrary library, TimeSpan interval)
        {
            this.library = library ?? throw new ArgumentNullException(nameof(library));
            if (interval < TimeSpan.FromMilliseconds(1) || interval > TimeSpan.FromHours(1))
            {
                throw new ArgumentOutOfRangeException(nameof(interval), interval, "from 1 ms to 1 hour");
            }
            Interval = interval;
            timer = new Timer(_ => Poll(), null, Timeout.Infinite, Timeout.Infinite);
        }

        /// <summary>How often the watcher asks the library.</summary>
        public TimeSpan Interval { get; }

        /// <summary>Raised for each device whose connection changed since the last poll.</summary>
        public event EventHandler<DeviceConnectionChangedEventArgs> ConnectionChanged;

        /// <summary>Receives what a handler of <see cref="ConnectionChanged"/> or the library threw during a poll.</summary>
        public event Action<Exception> PollFailed;

        /// <summary>
        /// Takes the current state of every device as the baseline (no event for
        /// it) and starts polling. Calling it again while running does nothing.
        /// </summary>
        /// <exception cref="ObjectDisposedException">The watcher, or its library, was disposed.</exception>
        public void Start()
        {
            lock (gate)
            {
                if (disposed) throw new ObjectDisposedException(nameof(DeviceWatcher));
                if (running) return;
                known = Snapshot();
                running = true;
                timer.Change(Interval, Timeout.InfiniteTimeSpan);
            }
        }

        /// <summary>
        /// Stops polling. Returns once a poll in progress has raised its events,
        /// except when called from a handler (then that poll is the last).
        /// </summary>
        public void Stop()
        {
            lock (gate)
            {
                running = false;
                timer.Change(Timeout.Infinite, Timeout.Infinite);
                while (polling && pollingThread != Thread.CurrentThread) Monitor.Wait(gate);
            }
        }

        /// <summary>Stops polling (as <see cref="Stop"/>) and frees the timer. Calling it again does nothing.</summary>
        public void Dispose()
        {
            Stop();
            lock (gate)
            {
                if (disposed) return;
                disposed = true;
            }
            timer.Dispose();
        }

        private Dictionary<string, bool> Snapshot()
        {
            var state = new Dictionary<string, bool>();
            foreach (string identifier in library.DeviceIdentifiers) state[identifier] = library.IsDeviceConnected(identifier);
            return state;
        }

        private void Poll()
        {
            lock (gate)
            {
                if (!running) return;
                polling = true;
                pollingThread = Thread.CurrentThread;
            }
            try
            {
                var changes = new List<DeviceConnectionChangedEventArgs>();
                try
                {
                    Dictionary<string, bool> now = Snapshot();
                    foreach (var entry in now)
                    {
                        // A device that appears counts as a change from disconnected.
                        bool before = known.TryGetValue(entry.Key, out bool was) && was;
                        if (before != entry.Value) changes.Add(new DeviceConnectionChangedEventArgs(entry.Key, entry.Value));
                    }
                    foreach (var entry in known)
                    {
                        if (entry.Value && !now.ContainsKey(entry.Key)) changes.Add(new DeviceConnectionChangedEventArgs(entry.Key, false));
                    }
                    known = now;
                }
                catch (Exception e)
                {
                    Report(e);
                }
                foreach (var change in changes)
                {
                    try
                    {
                        ConnectionChanged?.Invoke(this, change);
                    }
                    catch (Exception e)
                    {
                        Report(e);
                    }
                }
            }
            finally
            {
                lock (gate)
                {
                    polling = false;
                    pollingThread = null;
                    Monitor.PulseAll(gate);
                    if (running) timer.Change(Interval, Timeout.InfiniteTimeSpan);
                }
            }
        }

        private void Report(Exception e)
        {
            try
            {
                var failed = PollFailed;
                if (failed != null) failed(e);
                else Console.Error.WriteLine($"Velarion: device watcher poll failed: {e.Message}");
            }
            catch (Exception)
            {
                // The reporting handler failed as well; there is nobody left to tell.
            }
        }
    }
}
