using System;
using System.Collections;
using System.Collections.Generic;

namespace Velarion
{
    /// <summary>
    /// A control point record: a focal point at <see cref="Position"/> (metres,
    /// device space), with <see cref="Intensity"/> from 0 to 1.
    /// </summary>
    public partial class ControlPointBase
    {
        /// <summary>The position in metres; borrowed: writing its x, y, z changes this record.</summary>
        public NVector3 Position
        {
            get => position;
            set => setPosition(value);
        }

        /// <summary>The direction (unit vector); borrowed: writing its x, y, z changes this record.</summary>
        public NVector3 Direction
        {
            get => direction;
            set => setDirection(value);
        }

        /// <summary>The intensity, 0 (off) to 1 (full).</summary>
        public float Intensity
        {
            get => getIntensity();
            set => setIntensity(value);
        }

        /// <summary>The phase angle in radians (not used by the device library).</summary>
        public float PhaseAngle
        {
            get => getPhaseAngle();
            set => setPhaseAngle(value);
        }

        /// <summary>Lets the device library choose the phase angle.</summary>
        public void AutoPhaseAngle() => autoPhaseAngle();
    }

    /// <summary>A control point record with an identifier that stays with it from one emission to the next.</summary>
    public partial class ControlPointPersistentBase
    {
        /// <summary>The identifier given at construction.</summary>
        public uint Id => getID();
    }

    /// <summary>
    /// A focal point for the amplitude modulation emitter: position (metres),
    /// intensity (0 to 1) and modulation frequency (hertz).
    /// </summary>
    public partial class AmplitudeModulationControlPoint
    {
        /// <summary>The modulation frequency, in hertz, of points made without one (125 Hz).</summary>
        public static int DefaultFrequency => velarion_amplitudemodulation.DEFAULT_CONTROL_POINT_FREQUENCY;

        /// <summary>The position in metres (a copy; assign to change).</summary>
        public NVector3 Position
        {
            get => getPosition();
            set => setPosition(value);
        }

        /// <summary>The direction (a copy; assign to change).</summary>
        public NVector3 Direction
        {
            get => getDirection();
            set => setDirection(value);
        }

        /// <summary>The intensity, 0 (off) to 1 (full).</summary>
        public float Intensity
        {
            get => getIntensity();
            set => setIntensity(value);
        }

        /// <summary>The modulation frequency in hertz (125 Hz unless given).</summary>
        public float Frequency
        {
            get => getFrequency();
            set => setFrequency(value);
        }

        /// <summary>The phase angle in radians.</summary>
        public float PhaseAngle
        {
            get => getPhaseAngle();
            set => setPhaseAngle(value);
        }

        /// <summary>Lets the device library choose the phase angle.</summary>
        public void AutoPhaseAngle() => autoPhaseAngle();
    }

    /// <summary>
    /// The control points an <see cref="AmplitudeModulationEmitter"/> emits,
    /// handed over in one <see cref="AmplitudeModulationEmitter.Update(ControlPointCollection)"/>.
    /// Elements are copies: the indexer and the enumerator hand out new points
    /// the caller owns (and disposes), and <see cref="Add"/> and the indexer's
    /// setter copy the point given.
    /// </summary>
    public partial class ControlPointCollection : IReadOnlyList<AmplitudeModulationControlPoint>
    {
        /// <summary>The number of points.</summary>
        public int Count => NativeCount.ToInt(length());

        /// <summary>A copy of point <paramref name="index"/>, or, when set, replaces it with a copy.</summary>
        /// <exception cref="ArgumentOutOfRangeException">no such point</exception>
        public AmplitudeModulationControlPoint this[int index]
        {
            get => get(Index(index));
            set => set(Index(index), value);
        }

        private uint Index(int index)
        {
            if (index < 0 || index >= Count) throw new ArgumentOutOfRangeException(nameof(index));
            return (uint)index;
        }

        /// <summary>Appends a copy of <paramref name="point"/>.</summary>
        public void Add(AmplitudeModulationControlPoint point) => add(point);

        /// <summary>Removes every point.</summary>
        public void Clear() => clear();

        /// <summary>Removes the first point; false when there is none.</summary>
        public bool RemoveFirst()
        {
            if (length() == 0) return false;
            remove(0);
            return true;
        }

        /// <summary>Copies of the points, in order; each is the caller's to dispose.</summary>
        public IEnumerator<AmplitudeModulationControlPoint> GetEnumerator()
        {
            int count = Count;
            for (int i = 0; i < count && i < Count; ++i) yield return get((uint)i);
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();
    }
}
