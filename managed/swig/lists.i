// StringList and DeviceInfoList: managed lists over std::vector<std::string>
// and std::vector<Velarion::DeviceInfo>. The library returns them from
// getManagedDeviceIdentifiers and getManagedDeviceInfos, so they come before
// the device declarations; DeviceInfo is declared in device.i.
//
// The vector is declared here rather than taken from SWIG's library so that
// the generated members are ours to make internal or to document: the rest of
// the list surface (Count, Capacity, the indexer, the enumerator, the
// interfaces) is written by hand in Devices/StringList.cs and
// Devices/DeviceInfoList.cs. Member names and overload order give the exports'
// names.
%include <std_string.i>
%include "docs.i"

namespace Velarion {
class DeviceInfo;
}

%typemap(csclassmodifiers) std::vector<std::string> "internal partial class"
%typemap(csclassmodifiers) std::vector<Velarion::DeviceInfo> "internal partial class"

// A size the process cannot have is refused before the native side would
// abort on a failed allocation (CheckSize, CheckRepeat: the partial classes).
%typemap(csin, pre="    CheckSize($csinput, \"capacity\");") int capacity "$csinput"
%typemap(csout, excode=SWIGEXCODE) std::vector<std::string> Repeat,
    std::vector<Velarion::DeviceInfo> Repeat {
    CheckRepeat(value, count);
    $csclassname ret = new $csclassname($imcall, true);$excode
    return ret;
  }

VELARION_INTERNAL_BEGIN
%csmethodmodifiers ~vector "protected virtual";

VELARION_DOC(std::vector::vector(), "An empty list.")
VELARION_DOC(std::vector::vector(const vector&), "A list of copies of the elements of <paramref name=\"other\"/>.")
VELARION_DOC2(std::vector::vector(int), "An empty list with room for <paramref name=\"capacity\"/> elements.",
    "<exception cref=\"System.ArgumentOutOfRangeException\"><paramref name=\"capacity\"/> is negative.</exception>\n  /// <exception cref=\"System.OutOfMemoryException\">The elements could never fit in this process's memory.</exception>")
VELARION_DOC(std::vector::clear, "Removes (and frees) every element.")
VELARION_DOC(std::vector::push_back, "Appends a copy of <paramref name=\"value\"/>.")
VELARION_DOC(std::vector::AddRange, "Appends copies of the elements of <paramref name=\"values\"/>.")
VELARION_DOC2(std::vector::GetRange, "A new list of copies of <paramref name=\"count\"/> elements from <paramref name=\"index\"/> on.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">A negative index or count.</exception>\n  /// <exception cref=\"System.ArgumentException\">The range runs past the end (\"invalid range\").</exception>")
VELARION_DOC2(std::vector::Insert, "Inserts a copy of <paramref name=\"value\"/> before <paramref name=\"index\"/> (<see cref=\"Count\"/> appends).",
    "<exception cref=\"System.ArgumentOutOfRangeException\">The index lies outside 0 to <see cref=\"Count\"/>.</exception>")
VELARION_DOC2(std::vector::InsertRange, "Inserts copies of the elements of <paramref name=\"values\"/> before <paramref name=\"index\"/>.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">The index lies outside 0 to <see cref=\"Count\"/>.</exception>")
VELARION_DOC2(std::vector::RemoveAt, "Removes the element at <paramref name=\"index\"/>.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">No element there.</exception>")
VELARION_DOC2(std::vector::RemoveRange, "Removes <paramref name=\"count\"/> elements from <paramref name=\"index\"/> on.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">A negative index or count.</exception>\n  /// <exception cref=\"System.ArgumentException\">The range runs past the end.</exception>")
VELARION_DOC2(std::vector::Repeat, "A new list of <paramref name=\"count\"/> copies of <paramref name=\"value\"/>.",
    "<exception cref=\"System.ArgumentOutOfRangeException\"><paramref name=\"count\"/> is negative.</exception>\n  /// <exception cref=\"System.OutOfMemoryException\">The copies could never fit in this process's memory.</exception>")
VELARION_DOC(std::vector::Reverse(), "Reverses the order of the whole list.")
VELARION_DOC2(std::vector::Reverse(int, int), "Reverses the order of <paramref name=\"count\"/> elements from <paramref name=\"index\"/> on.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">A negative index or count.</exception>\n  /// <exception cref=\"System.ArgumentException\">The range runs past the end.</exception>")
VELARION_DOC2(std::vector::SetRange, "Overwrites the elements from <paramref name=\"index\"/> on with copies of <paramref name=\"values\"/>.",
    "<exception cref=\"System.ArgumentOutOfRangeException\">A negative index, or the values would run past the end.</exception>")
VELARION_DOC(std::vector::Contains, "Whether an element equals <paramref name=\"value\"/> byte for byte (in UTF-8).")
VELARION_DOC(std::vector::IndexOf, "The position of the first element equal to <paramref name=\"value\"/>, or -1.")
VELARION_DOC(std::vector::LastIndexOf, "The position of the last element equal to <paramref name=\"value\"/>, or -1.")
VELARION_DOC(std::vector::Remove, "Removes the first element equal to <paramref name=\"value\"/>; false when there is none (the list is then unchanged).")

namespace std {

template <class T> class vector {
 public:
  vector();
  vector(const vector& other);
  vector(int capacity) throw (std::out_of_range);
  ~vector();

  %rename(Clear) clear;
  void clear();
  %rename(Add) push_back;
  void push_back(const T& value);
  unsigned int size() const;
  unsigned int capacity() const;
  void reserve(unsigned int n);
  T getitemcopy(int index) throw (std::out_of_range);
  const T& getitem(int index) throw (std::out_of_range);
  void setitem(int index, const T& value) throw (std::out_of_range);
  void AddRange(const vector& values);
  vector GetRange(int index, int count) throw (std::out_of_range, std::invalid_argument);
  void Insert(int index, const T& value) throw (std::out_of_range);
  void InsertRange(int index, const vector& values) throw (std::out_of_range);
  void RemoveAt(int index) throw (std::out_of_range);
  void RemoveRange(int index, int count) throw (std::out_of_range, std::invalid_argument);
  static vector Repeat(const T& value, int count) throw (std::out_of_range);
  void Reverse();
  void Reverse(int index, int count) throw (std::out_of_range, std::invalid_argument);
  void SetRange(int index, const vector& values) throw (std::out_of_range);
};

}  // namespace std

// Strings compare byte for byte; descriptions have no equality.
%extend std::vector<std::string> {
  bool Contains(const std::string& value);
  int IndexOf(const std::string& value);
  int LastIndexOf(const std::string& value);
  bool Remove(const std::string& value);
}

// The members both lists share, over their internal size, capacity, reserve,
// getitemcopy and setitem; what differs stays in the partial classes.
%define VELARION_LIST_MEMBERS(VECTOR, ELEMENT, ITEM, ITEMS)
%typemap(cscode) VECTOR %{
  /// <summary>A list of copies of <paramref name="values"/>, in their order.</summary>
  /// <exception cref="System.ArgumentNullException"><paramref name="values"/> or one of them is null.</exception>
  public $csclassname(global::System.Collections.Generic.IEnumerable<ELEMENT> values) : this() {
    if (values == null) throw new global::System.ArgumentNullException(nameof(values));
    foreach (ELEMENT value in values) Add(value);
  }

  /// <summary>The number of ITEMS.</summary>
  public int Count => checked((int)size());

  /// <summary>
  /// The number of ITEMS the list holds without growing. Setting it
  /// reserves room; it never shrinks the storage.
  /// </summary>
  /// <exception cref="System.ArgumentOutOfRangeException">Set below <see cref="Count"/>.</exception>
  /// <exception cref="System.OutOfMemoryException">Set to more than this process could ever hold.</exception>
  public int Capacity {
    get => checked((int)capacity());
    set {
      if (value < Count) throw new global::System.ArgumentOutOfRangeException(nameof(value), value, "below the list's Count");
      CheckSize(value, nameof(value));
      reserve((uint)value);
    }
  }

  /// <summary>
  /// A new copy of the ITEM at <paramref name="index"/>, the caller's own;
  /// setting stores a copy of the value.
  /// </summary>
  /// <exception cref="System.ArgumentOutOfRangeException">No ITEM at <paramref name="index"/>.</exception>
  /// <exception cref="System.ArgumentNullException">Set to null.</exception>
  public ELEMENT this[int index] {
    get => getitemcopy(index);
    set => setitem(index, value);
  }

  /// <summary>
  /// Enumerates new copies of the ITEMS. Adding or removing ITEMS while
  /// enumerating makes the next step throw <see cref="System.InvalidOperationException"/>.
  /// </summary>
  public global::System.Collections.Generic.IEnumerator<ELEMENT> GetEnumerator() {
    int count = Count;
    for (int i = 0; i < count; ++i) {
      if (Count != count) throw new global::System.InvalidOperationException("the list changed during the enumeration");
      yield return this[i];
    }
  }

  global::System.Collections.IEnumerator global::System.Collections.IEnumerable.GetEnumerator() => GetEnumerator();
%}
%enddef

VELARION_LIST_MEMBERS(std::vector<std::string>, string, element, elements)
VELARION_LIST_MEMBERS(std::vector<Velarion::DeviceInfo>, DeviceInfo, description, descriptions)

// The element by reference (getitem) points into the list's storage, which
// the next Add, Insert, Remove or Clear may move or free: the public surface
// reads elements as copies only (getitemcopy).

%template(StringList) std::vector<std::string>;
%template(DeviceInfoList) std::vector<Velarion::DeviceInfo>;

VELARION_INTERNAL_END
%clear int capacity;
%clear std::vector<std::string> Repeat, std::vector<Velarion::DeviceInfo> Repeat;
