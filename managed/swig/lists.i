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

// The indexer and the enumerator hand out copies: a borrowed element would
// point into the list's storage, which the next Add, Insert, Remove or Clear
// may move or free, and would not keep the list reachable.
// (getitemcopy raises the index failure itself.)
%warnfilter(SWIGWARN_CSHARP_EXCODE) std::vector<Velarion::DeviceInfo>::getitem;
%typemap(csout) const Velarion::DeviceInfo& getitem {
    return getitemcopy(index);
  }
%template(DeviceInfoList) std::vector<Velarion::DeviceInfo>;
%clear const Velarion::DeviceInfo& getitem;
