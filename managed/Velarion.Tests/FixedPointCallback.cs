using System;
using System.Numerics;
using System.Threading;
using Xunit;

namespace Velarion.Tests
{
    // Emits one fixed focal point at every time point and lets a test wait
    // for the next few intervals (bounded).
    internal sealed class FixedPointCallback : EmissionCallback
    {
        private static readonly TimeSpan Limit = TimeSpan.FromSeconds(10);
        private readonly Vector3 position;
        private readonly SemaphoreSlim called = new SemaphoreSlim(0);

        internal FixedPointCallback(Vector3 position) => this.position = position;

        protected override void OnEmission(EmissionInterval interval)
        {
            for (int k = 0; k < interval.TimePointCount; ++k)
            {
                ref var point = ref interval[k, 0];
                point.Position = position;
                point.Intensity = 1f;
                point.Enabled = true;
                point.Modified = true;
            }
            called.Release();
        }

        internal void WaitForCalls(int count)
        {
            for (int i = 0; i < count; ++i) Assert.True(called.Wait(Limit), "the emitter stopped calling");
        }

        // Forgets the calls so far: the next wait is for calls still to come.
        internal void Forget()
        {
            while (called.Wait(0)) { }
        }
    }
}
