using System;
using System.Globalization;
using System.IO;

namespace Velarion.Guide
{
    // Runs the user guide's steps in its order, on the emulated device library.
    public static class Program
    {
        public static int Main(string[] args)
        {
            CultureInfo.CurrentCulture = CultureInfo.InvariantCulture;
            string samples = args.Length > 0 ? args[0] : Path.Combine("samples", "hardware");
            string pictures = args.Length > 1 ? Directory.CreateDirectory(args[1]).FullName : Directory.GetCurrentDirectory();
            Run(samples, pictures);
            return 0;
        }

        /// <summary>Every step; pictures go to <paramref name="pictures"/>.</summary>
        public static void Run(string sampleConfigurations, string pictures)
        {
            Geometry.WithNumerics();
            Devices.List();
            FocalPoint.Play();
            Circle.Stream();
            Palm.Circle(pictures);
            Logs.ToDelegate();
            Logs.ToILogger();
            Configuration.Load(sampleConfigurations);
            Field.Draw(pictures);
            Emulator.UnplugAndReplug();
            Emulator.DrawStreamedField(pictures);
        }
    }
}
