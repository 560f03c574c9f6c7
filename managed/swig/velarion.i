// The `velarion` interop module: geometry, device library, logging, lists.
// These files are SWIG's view of the native classes: they exist to generate
// the C# binding and never reach a C++ compiler. The native exports they
// describe are written by hand in src/.
%module(directors="1") velarion

// The module class holds only what the public classes wrap.
%pragma(csharp) moduleclassmodifiers="internal class"

%include "common.i"
%include "geometry.i"
%include "logging.i"
%include "lists.i"
%include "device.i"
%include "library.i"
%include "records.i"
%include "hosttime.i"

VELARION_MODULE_RUNTIME
