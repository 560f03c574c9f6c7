// StringList and DeviceInfoList: managed lists over std::vector<std::string>
// and std::vector<Velarion::DeviceInfo>. The library returns them from
// getManagedDeviceIdentifiers and getManagedDeviceInfos, so they come before
// the device declarations; DeviceInfo is declared in device.i.
%include <std_string.i>
%include <std_vector.i>

namespace Velarion {
class DeviceInfo;
}

%template(StringList) std::vector<std::string>;
%template(DeviceInfoList) std::vector<Velarion::DeviceInfo>;
