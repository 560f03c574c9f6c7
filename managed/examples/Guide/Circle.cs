using System;
using System.Numerics;
using System.Threading;
using Velarion;

namespace Velarion.Guide
{
    public static class Circle
    {
        public static void Stream()
        {
            #region guide: stream-circle
            using var library = new VelarionLibrary();
            using var emitter = new TimePointStreamingEmitter(library.DeviceIdentifiers[0]);
            // Called on the device library's emission thread, about every 2 ms, for
            // the next few milliseconds of time points: give each one a position.
            using var callback = new DelegateEmissionCallback(interval =>
            {
                for (int k = 0; k < interval.TimePointCount; ++k)
                {
                    double seconds = interval.TimePoints[k].Nanoseconds / 1e9;
                    float angle = (float)(2 * Math.PI * 100 * (seconds % 0.01));  // 100 turns a second
                    ref var point = ref interval[k, 0];
                    point.Position = new Vector3(0.02f * MathF.Cos(angle), 0.02f * MathF.Sin(angle), 0.2f);
                    point.Intensity = 1f;
                    point.Enabled = true;
                    point.Modified = true;  // unmodified points keep their last state
                }
            });
            // An exception in the handler stops nothing and is reported here.
            callback.EmissionFailed += e => Console.Error.WriteLine($"emission callback failed: {e.Message}");
            emitter.SetEmissionCallback(callback);
            emitter.Start();
            Thread.Sleep(1000);
            emitter.Stop();  // returns once the last call has returned
            #endregion
        }
    }
}
