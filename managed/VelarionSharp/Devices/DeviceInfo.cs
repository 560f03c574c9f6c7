using System;
using System.Collections.Generic;
using System.Globalization;
using System.Runtime.InteropServices;

namespace Velarion
{
    /// <summary>Optional capabilities of a device, combined as bits.</summary>
    [Flags]
    public enum DeviceFeatures
    {
        /// <summary>No optional capability.</summary>
        None = 0,
        /// <summary>Amplitude-modulated control points (<see cref="AmplitudeModulationEmitter"/>).</summary>
        AmplitudeModulation = 1,
        /// <summary>Time-point streaming (<see cref="TimePointStreamingEmitter"/>).</summary>
        TimePointStreaming = 2,
        /// <summary>Several devices of this model driven by one emitter in lockstep.</summary>
        MultiDeviceSynchronization = 4,
    }

    /// <summary>How an emitter picks the devices it drives.</summary>
    public enum DeviceSelectionMode
    {
        /// <summary>One device: the one named at construction.</summary>
        SingleDevice = 0,
        /// <summary>Every device added to the emitter, each placed by its own transform.</summary>
        MultipleDevices = 1,
    }

    /// <summary>
    /// The description of one device, as the device library gave it when it was
    /// asked: an immutable snapshot.
    /// </summary>
    public sealed class DeviceInfo
    {
        internal DeviceInfo(Raw.DeviceInfo info)
        {
            DeviceIdentifier = info.getDeviceIdentifier();
            ModelIdentifier = info.getModelIdentifier();
            ModelDescription = info.getModelDescription();
            SerialNumber = info.getSerialNumber();
            FirmwareVersion = info.getFirmwareVersion();
            FirmwareBuildDate = info.getFirmwareBuildDate();
            TransducerLayoutName = info.getTransducerLayoutName();
            ArrayWidth = info.arrayWidth();
            ArrayDepth = info.arrayDepth();
            SupportedFeatures = (DeviceFeatures)(int)info.getSupportedFeatures();
            using (Raw.Alignment alignment = info.getDefaultAlignment())
                DefaultAlignment = Alignment.DeviceToTrackingOf(alignment);
            using (Raw.TransducerContainer transducers = info.getTransducerConfiguration())
                Transducers = Transducer.Copy(transducers);
        }

        /// <summary>The device's identifier, unique among the devices of the device library.</summary>
        public string DeviceIdentifier { get; }

        /// <summary>The model's identifier.</summary>
        public string ModelIdentifier { get; }

        /// <summary>The model's description, for people.</summary>
        public string ModelDescription { get; }

        /// <summary>The serial number.</summary>
        public string SerialNumber { get; }

        /// <summary>The firmware's version.</summary>
        public string FirmwareVersion { get; }

        /// <summary>The firmware's build date.</summary>
        public string FirmwareBuildDate { get; }

        /// <summary>The name of the transducer layout.</summary>
        public string TransducerLayoutName { get; }

        /// <summary>The array's width, in metres.</summary>
        public float ArrayWidth { get; }

        /// <summary>The array's depth, in metres.</summary>
        public float ArrayDepth { get; }

        /// <summary>The optional capabilities.</summary>
        public DeviceFeatures SupportedFeatures { get; }

        /// <summary>The device's default alignment: device space to tracking space.</summary>
        public Transform DefaultAlignment { get; }

        /// <summary>The array's elements, in the device library's order.</summary>
        public IReadOnlyList<Transducer> Transducers { get; }

        /// <summary>Whether the device has every capability of <paramref name="features"/>.</summary>
        /// <param name="features">One or more capabilities.</param>
        /// <returns>true when all are supported.</returns>
        public bool HasSupportFor(DeviceFeatures features) => (SupportedFeatures & features) == features;

        /// <summary>The device identifier.</summary>
        /// <returns><see cref="DeviceIdentifier"/>.</returns>
        public override string ToString() => DeviceIdentifier;
    }

    /// <summary>One element of an array: where it sits, where it faces, and its output multiplier.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public readonly struct Transducer : IEquatable<Transducer>
    {
        private readonly NVector3 position;
        private readonly NVector3 upVector;
        private readonly float multiplier;

        /// <summary>An element at <paramref name="position"/> facing <paramref name="upVector"/>.</summary>
        /// <param name="position">Its centre, in metres, device space.</param>
        /// <param name="upVector">The direction it faces (a unit vector).</param>
        /// <param name="multiplier">Its output multiplier, 0 (disabled) to 1.</param>
        public Transducer(NVector3 position, NVector3 upVector, float multiplier)
        {
            this.position = position;
            this.upVector = upVector;
            this.multiplier = multiplier;
        }

        /// <summary>Its centre, in metres, device space.</summary>
        public NVector3 Position => position;

        /// <summary>The direction it faces.</summary>
        public NVector3 UpVector => upVector;

        /// <summary>Its output multiplier, 0 (disabled) to 1.</summary>
        public float Multiplier => multiplier;

        /// <summary>Whether it emits (a multiplier other than 0).</summary>
        public bool IsEnabled => multiplier != 0f;

        internal static unsafe IReadOnlyList<Transducer> Copy(Raw.TransducerContainer container)
        {
            int count = NativeCount.ToInt(container.size());
            var copy = new Transducer[count];
            if (count > 0)
            {
                using Raw.Transducer first = container.data();
                using var lease = new Interop.HandleLease(Raw.Transducer.getCPtr(first));
                new ReadOnlySpan<Transducer>((void*)lease.Pointer, count).CopyTo(copy);
            }
            return Array.AsReadOnly(copy);
        }

        /// <summary>Whether <paramref name="other"/> has the same position, direction and multiplier.</summary>
        /// <param name="other">The element to compare with.</param>
        /// <returns>true when equal.</returns>
        public bool Equals(Transducer other) =>
            position.Equals(other.position) && upVector.Equals(other.upVector) && multiplier.Equals(other.multiplier);

        /// <summary>Whether <paramref name="obj"/> is an equal <see cref="Transducer"/>.</summary>
        /// <param name="obj">The object to compare with.</param>
        /// <returns>true when equal.</returns>
        public override bool Equals(object? obj) => obj is Transducer other && Equals(other);

        /// <summary>A hash consistent with <see cref="Equals(Transducer)"/>.</summary>
        /// <returns>The hash.</returns>
        public override int GetHashCode() => HashCode.Combine(position, upVector, multiplier);

        /// <summary>"position (x, y, z) facing (x, y, z) × multiplier", in the invariant culture.</summary>
        /// <returns>The text.</returns>
        public override string ToString() =>
            $"position {position} facing {upVector} × {multiplier.ToString(CultureInfo.InvariantCulture)}";
    }
}
