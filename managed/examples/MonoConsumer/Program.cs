using System;
using System.Collections.Concurrent;
using System.IO;
using System.Numerics;
using System.Threading;
using SkiaSharp;
using Velarion;
using Velarion.Emulation;
using Velarion.Emulation.Plotting;
using static DeviceRoundTrip;

// The Mono half of the net8.0 consumer, on the netstandard2.1 assemblies: the
// same virtual device that comes and goes (DeviceRoundTrip.cs), and both kinds
// of field written as PNG files into the folder named by the first argument.
// Ends with one line and exit code 0, or the first failure and exit code 1.
const int Width = 900, Height = 760;
var timeout = TimeSpan.FromSeconds(10);
string folder = Directory.CreateDirectory(args.Length > 0 ? args[0] : "mono-plots").FullName;
try
{
    using var library = new VelarionLibrary();
    var warnings = new BlockingCollection<string>();
    using var log = new DelegateLoggingCallback((message, level, area) => warnings.Add(message));
    library.Logging.SetCallback(DeviceLogLevel.Warning, log);

    var (streamed, modulated) = DeviceRoundTrip.Run(library, warnings, "MONO-ARRAY", timeout);
    string streamedFile = Path.Combine(folder, "streamed.png");
    FieldPlots.SavePressureMap(streamed, streamedFile, Width, Height);
    string modulatedFile = Path.Combine(folder, "modulated.png");
    FieldPlots.SavePressureMap(modulated, modulatedFile, Width, Height);

    Console.WriteLine($"Mono consumer on Mono {MonoVersion()}: unplugged, replugged and streamed again; " +
                      $"fields peak at {streamed.Peak:0} Pa (streamed) and {modulated.Peak:0} Pa (modulated), " +
                      $"plotted in {folder}: {CheckPicture(streamedFile)}; {CheckPicture(modulatedFile)}");
    return 0;
}
catch (Exception e) when (!(e is OutOfMemoryException))
{
    Console.Error.WriteLine($"Mono consumer: {e}");
    return 1;
}

// A real PNG of the size asked for, decoded by Skia, that shows a heat map: a
// fifth of it or more in hundreds of colours. (Axes, text and grid are grey,
// however many shades anti-aliasing gives them.)
static string CheckPicture(string file)
{
    byte[] bytes = File.ReadAllBytes(file);
    byte[] signature = { 0x89, (byte)'P', (byte)'N', (byte)'G', 0x0D, 0x0A, 0x1A, 0x0A, 0, 0, 0, 13,
                         (byte)'I', (byte)'H', (byte)'D', (byte)'R' };
    bool png = bytes.Length > 24;
    for (int i = 0; png && i < signature.Length; ++i) png = bytes[i] == signature[i];
    Require(png, $"{file} is a PNG");
    int width = BigEndian(bytes, 16), height = BigEndian(bytes, 20);
    Require(width == Width && height == Height, $"{file} is {Width}x{Height} (it is {width}x{height})");
    Require(bytes.Length > 20_000 && bytes.Length < 4_000_000, $"{file} has a sensible size (it has {bytes.Length} bytes)");
    using var bitmap = SKBitmap.Decode(bytes);
    Require(bitmap != null && bitmap.Width == Width && bitmap.Height == Height, $"{file} decodes");
    var colours = new System.Collections.Generic.HashSet<uint>();
    int coloured = 0;
    foreach (SKColor pixel in bitmap.Pixels)
    {
        int chroma = Math.Max(pixel.Red, Math.Max(pixel.Green, pixel.Blue)) - Math.Min(pixel.Red, Math.Min(pixel.Green, pixel.Blue));
        if (chroma < 32) continue;
        ++coloured;
        colours.Add((uint)pixel);
    }
    Require(coloured > Width * Height / 5 && colours.Count > 200,
            $"{file} shows a heat map (it has {coloured} coloured pixels in {colours.Count} colours)");
    return $"{Path.GetFileName(file)} {width}x{height}, {bytes.Length} bytes, {100 * coloured / (Width * Height)}% in {colours.Count} colours";
}

static int BigEndian(byte[] bytes, int at) => (bytes[at] << 24) | (bytes[at + 1] << 16) | (bytes[at + 2] << 8) | bytes[at + 3];

static string MonoVersion()
{
    var mono = Type.GetType("Mono.Runtime");
    if (mono == null) throw new InvalidOperationException("failed: this program runs under Mono");
    return (string)mono.GetMethod("GetDisplayName", System.Reflection.BindingFlags.NonPublic | System.Reflection.BindingFlags.Static).Invoke(null, null);
}
