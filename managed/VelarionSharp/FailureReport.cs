// Internal plumbing written before the public surface was annotated.
#nullable disable
using System;

namespace Velarion
{
    // Failures nobody listens for: the first in full, then at most one line a
    // second with the count since the last line and the first message among them.
    internal sealed class FailureReport
    {
        private readonly string area, subject;

        // Lines read "Velarion: <area> <what> failed …", the counted ones
        // "Velarion: <area> <subject> failed n more times …".
        internal FailureReport(string area, string subject)
        {
            this.area = area;
            this.subject = subject;
        }

        internal static readonly long Second = System.Diagnostics.Stopwatch.Frequency;

        // Replaceable by tests.
        internal Func<long> Clock = System.Diagnostics.Stopwatch.GetTimestamp;
        internal System.IO.TextWriter Output;

        private bool reportedFirst;
        private long lastLine;
        private int count;
        private string firstMessage;

        internal void Add(Exception e, string what)
        {
            string line = null;
            lock (this)
            {
                long now = Clock();
                if (!reportedFirst)
                {
                    reportedFirst = true;
                    lastLine = now;
                    line = $"Velarion: {area} {what} failed (further failures: one line a second at most): {e}";
                }
                else
                {
                    if (count++ == 0) firstMessage = $"{e.GetType().Name}: {e.Message}";
                    if (now - lastLine >= Second)
                    {
                        line = $"Velarion: {area} {subject} failed {count} more time{(count == 1 ? "" : "s")}; the first: {firstMessage}";
                        lastLine = now;
                        count = 0;
                    }
                }
            }
            if (line != null) (Output ?? Console.Error).WriteLine(line);
        }
    }
}
