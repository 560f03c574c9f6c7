using System;

// The few Unity types the samples use, with Unity's names and signatures, so
// that CI compiles the samples against the binding: an API change that breaks
// a sample breaks the build. Bodies are placeholders; nothing here runs.
namespace UnityEngine
{
    public class Object
    {
    }

    public class Component : Object
    {
        public Transform transform => throw new NotSupportedException();
    }

    public class Behaviour : Component
    {
        public bool enabled { get; set; }
    }

    public class MonoBehaviour : Behaviour
    {
    }

    public class Transform : Component
    {
        public Vector3 position { get; set; }

        public Vector3 InverseTransformPoint(Vector3 position) => throw new NotSupportedException();
    }

    public struct Vector3
    {
        public float x;
        public float y;
        public float z;

        public Vector3(float x, float y, float z)
        {
            this.x = x;
            this.y = y;
            this.z = z;
        }
    }

    public static class Debug
    {
        public static void Log(object message) { }

        public static void LogWarning(object message) { }

        public static void LogError(object message) { }
    }

    [AttributeUsage(AttributeTargets.Field)]
    public sealed class SerializeField : Attribute
    {
    }

    [AttributeUsage(AttributeTargets.Field)]
    public sealed class RangeAttribute : Attribute
    {
        public RangeAttribute(float min, float max) { }
    }
}
