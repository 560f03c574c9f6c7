// Settings shared by the three modules.
%include <std_string.i>

// Untyped device-library pointers (state emitters) cross as IntPtr, so that
// no module generates its own SWIGTYPE_p_void class.
%apply void *VOID_INT_PTR { void * }

// Hand-written imports (managed/Velarion/*.cs) join the generated ones in the
// module's PINVOKE class.
%pragma(csharp) imclassclassmodifiers="internal partial class"
