namespace Velarion
{
    /// <summary>
    /// The device library's description of one device: identity, firmware,
    /// array size, supported features, default alignment and transducer
    /// layout. Every instance is a copy owned by the caller (the library, the
    /// lists and the emitters hand out new copies): dispose it when done.
    /// </summary>
    public partial class DeviceInfo
    {
        /// <summary>The identifier that names the device to the library and the emitters.</summary>
        public string DeviceIdentifier => getDeviceIdentifier();

        /// <summary>The model's identifier.</summary>
        public string ModelIdentifier => getModelIdentifier();

        /// <summary>A readable description of the model.</summary>
        public string ModelDescription => getModelDescription();

        /// <summary>The serial number.</summary>
        public string SerialNumber => getSerialNumber();

        /// <summary>The firmware version.</summary>
        public string FirmwareVersion => getFirmwareVersion();

        /// <summary>The firmware's build date.</summary>
        public string FirmwareBuildDate => getFirmwareBuildDate();

        /// <summary>The name of the transducer layout.</summary>
        public string TransducerLayoutName => getTransducerLayoutName();

        /// <summary>The array's width, in metres.</summary>
        public float ArrayWidth => arrayWidth();

        /// <summary>The array's depth, in metres.</summary>
        public float ArrayDepth => arrayDepth();

        /// <summary>The optional capabilities of the device, combined as bits.</summary>
        public DeviceFeatures SupportedFeatures => getSupportedFeatures();

        /// <summary>Whether the device supports <paramref name="feature"/> (several combined: the device library decides).</summary>
        public bool HasSupportFor(DeviceFeatures feature) => hasSupportFor(feature);

        /// <summary>A new copy of the device's default alignment with the tracking frame, owned by the caller.</summary>
        public Alignment GetDefaultAlignment() => getDefaultAlignment();

        /// <summary>A new copy of the device's transducer layout, owned by the caller.</summary>
        public TransducerContainer GetTransducerConfiguration() => getTransducerConfiguration();

        /// <summary>The device identifier.</summary>
        public override string ToString() => getDeviceIdentifier();
    }
}
