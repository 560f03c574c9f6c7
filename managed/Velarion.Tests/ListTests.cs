using System;
using System.Collections.Generic;
using System.Linq;
using Xunit;

namespace Velarion.Tests
{
    using Velarion.Raw;

    // The raw layer's lists: the public API hands out snapshots, but the raw
    // lists still must keep .NET's rules and never let a size abort the process.
    public class ListTests
    {
        [Fact]
        public void StringListsBehaveAsDotNetListsOverNativeStorage()
        {
            using var list = new StringList(new[] { "b", "a", "ü-device" });
            list.Add("a");
            Assert.Equal(new[] { "b", "a", "ü-device", "a" }, list);
            Assert.Equal((1, 3), (list.IndexOf("a"), list.LastIndexOf("a")));
            Assert.Contains("ü-device", list);
            Assert.Equal(new[] { "a", "a", "b", "ü-device" }, list.OrderBy(s => s, StringComparer.Ordinal));

            Assert.True(list.Remove("a"));
            Assert.False(list.Remove("absent"));
            list[0] = "c";
            list.Insert(list.Count, "end");
            Assert.Equal(new[] { "c", "ü-device", "a", "end" }, list);

            using var range = list.GetRange(1, 2);
            Assert.Equal(new[] { "ü-device", "a" }, range);

            // The native range checks arrive as the .NET exceptions a List<T> throws.
            Assert.Throws<ArgumentOutOfRangeException>(() => list[4]);
            Assert.Throws<ArgumentOutOfRangeException>(() => list.Insert(5, "x"));
            Assert.Equal("invalid range", Assert.Throws<ArgumentException>(() => list.GetRange(3, 2)).Message);
            Assert.Throws<ArgumentNullException>(() => list.Add(null));
            Assert.Throws<ArgumentOutOfRangeException>(() => list.Capacity = 2);
            Assert.Equal(4, list.Count);

            Assert.Throws<InvalidOperationException>(() =>
            {
                foreach (string s in list) list.Add(s);
            });
        }

        [Fact]
        public void SizesTheProcessCannotHaveAreRefusedBeforeTheNativeSide()
        {
            // Natively these would abort the process on a failed allocation.
            Assert.Throws<OutOfMemoryException>(() => new StringList(int.MaxValue));
            Assert.Throws<OutOfMemoryException>(() => StringList.Repeat("x", int.MaxValue));
            Assert.Throws<OutOfMemoryException>(() => StringList.Repeat(new string('x', 1000), 100_000_000));
            using var strings = new StringList();
            Assert.Throws<OutOfMemoryException>(() => strings.Capacity = int.MaxValue);

            using var library = new Raw.VelarionLibrary();
            using var infos = library.getManagedDeviceInfos();
            using var info = infos[0];
            Assert.Throws<OutOfMemoryException>(() => DeviceInfoList.Repeat(info, int.MaxValue));
            // Descriptions are one pointer each: int.MaxValue of them may fit a large machine.
            if (NativeSize.AvailableBytes / IntPtr.Size < int.MaxValue)
            {
                Assert.Throws<OutOfMemoryException>(() => infos.Capacity = int.MaxValue);
                Assert.Throws<OutOfMemoryException>(() => new DeviceInfoList(int.MaxValue));
            }

            Assert.Throws<ArgumentOutOfRangeException>(() => new StringList(-1));
            Assert.Throws<ArgumentOutOfRangeException>(() => StringList.Repeat("x", -1));
            Assert.Throws<ArgumentOutOfRangeException>(() => infos.Capacity = -1);

            // The lists are untouched, and sizes that fit still work.
            Assert.Equal(2, infos.Count);
            strings.Capacity = 1000;
            Assert.True(strings.Capacity >= 1000);
            using var repeated = DeviceInfoList.Repeat(info, 3);
            Assert.All(repeated, i => Assert.Equal(info.getDeviceIdentifier(), i.getDeviceIdentifier()));
        }
    }
}
