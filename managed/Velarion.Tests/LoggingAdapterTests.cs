using System;
using System.Collections.Concurrent;
using System.IO;
using System.Linq;
using Microsoft.Extensions.Logging;
using Velarion.Extensions.Logging;
using Xunit;

namespace Velarion.Tests
{
    // The device library's log routed into Microsoft.Extensions.Logging.
    [Collection("Emulated devices")]
    public class LoggingAdapterTests
    {
        private sealed class Recorder : ILoggerFactory
        {
            public readonly ConcurrentQueue<(string Category, LogLevel Level, string Message)> Lines =
                new ConcurrentQueue<(string, LogLevel, string)>();
            public LogLevel Minimum = LogLevel.Trace;
            public readonly ConcurrentQueue<string> Created = new ConcurrentQueue<string>();

            public ILogger CreateLogger(string category)
            {
                Created.Enqueue(category);
                return new Logger(this, category);
            }

            public void AddProvider(ILoggerProvider provider) { }
            public void Dispose() { }

            private sealed class Logger : ILogger
            {
                private readonly Recorder recorder;
                private readonly string category;

                public Logger(Recorder recorder, string category) => (this.recorder, this.category) = (recorder, category);

                public IDisposable BeginScope<TState>(TState state) => null;
                public bool IsEnabled(LogLevel level) => level >= recorder.Minimum;

                public void Log<TState>(LogLevel level, EventId id, TState state, Exception e, Func<TState, Exception, string> format) =>
                    recorder.Lines.Enqueue((category, level, format(state, e)));
            }
        }

        private static void FailAnAlignmentLoad(string marker)
        {
            using var alignment = new Alignment();
            Assert.False(alignment.TryLoad(Path.Combine(Path.GetTempPath(), $"no-such-folder-{marker}", "a")));
        }

        [Fact]
        public void EveryLineArrivesOnceInItsAreaCategoryAtItsLevelUntilDisposed()
        {
            using var library = new VelarionLibrary();
            var recorder = new Recorder();
            string marker = Guid.NewGuid().ToString("N");
            using (library.RouteLogTo(recorder))
            {
                FailAnAlignmentLoad(marker);
                FailAnAlignmentLoad(marker);
                var lines = recorder.Lines.Where(l => l.Message.Contains(marker)).ToArray();
                Assert.Equal(2, lines.Length);
                Assert.All(lines, l => Assert.Equal(("Velarion.Alignment", LogLevel.Warning), (l.Category, l.Level)));
                // One logger per area, made once (tests beside this one may log other areas).
                Assert.Single(recorder.Created, c => c == "Velarion.Alignment");

                // Levels the logger does not want cost no formatting and arrive nowhere.
                recorder.Minimum = LogLevel.Error;
                FailAnAlignmentLoad(marker + "-quiet");
                Assert.DoesNotContain(recorder.Lines, l => l.Message.Contains(marker + "-quiet"));
            }
            FailAnAlignmentLoad(marker + "-after");
            Assert.DoesNotContain(recorder.Lines, l => l.Message.Contains(marker + "-after"));
        }

        [Fact]
        public void TheDeviceLibraryPrintsNothingWhileRoutedAndGetsItsDestinationBack()
        {
            string file = Path.Combine(Path.GetTempPath(), $"velarion-log-{Guid.NewGuid():N}.txt");
            try
            {
                using var library = new VelarionLibrary();
                var logging = library.Logging;
                Assert.True(logging.TryRedirectToFile(file));
                var recorder = new Recorder();
                using (library.RouteLogTo(recorder, l => l.TryRedirectToFile(file)))
                {
                    FailAnAlignmentLoad("routed");
                }
                FailAnAlignmentLoad("restored");
                logging.RedirectToNull();  // closes the file
                string printed = File.ReadAllText(file);
                Assert.DoesNotContain("no-such-folder-routed", printed);
                Assert.Contains("no-such-folder-restored", printed);
                Assert.Contains(recorder.Lines, l => l.Message.Contains("no-such-folder-routed"));
            }
            finally
            {
                File.Delete(file);
            }
        }

        [Fact]
        public void ARoutingOutlivingItsLibraryOrALoggerThatThrowsIsHarmless()
        {
            var library = new VelarionLibrary();
            var failures = new ConcurrentQueue<Exception>();
            var route = library.RouteLogTo(new ThrowingLogger());
            route.LoggerFailed += failures.Enqueue;
            FailAnAlignmentLoad("throwing");
            Assert.Contains(failures, e => e.Message == "logger bug");
            library.Dispose();
            route.Dispose();
            route.Dispose();
        }

        private sealed class ThrowingLogger : ILogger
        {
            public IDisposable BeginScope<TState>(TState state) => null;
            public bool IsEnabled(LogLevel level) => true;
            public void Log<TState>(LogLevel level, EventId id, TState state, Exception e, Func<TState, Exception, string> format) =>
                throw new InvalidOperationException("logger bug");
        }
    }
}
