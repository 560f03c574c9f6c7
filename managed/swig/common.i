// Settings shared by the three modules.
%include <std_string.i>

// Untyped device-library pointers (state emitters) cross as IntPtr, so that
// no module generates its own SWIGTYPE_p_void class.
%apply void *VOID_INT_PTR { void * }

// Hand-written imports (managed/VelarionSharp/*.cs) join the generated ones in
// the module's PINVOKE class.
%pragma(csharp) imclassclassmodifiers="internal partial class"

// --- Ownership ---------------------------------------------------------------
// Every proxy holds one Interop.NativeHandle (a SafeHandle): platform invoke
// holds a reference on it for the length of each call, so a Dispose on another
// thread frees the object only after the call returned. Handles of objects
// passed in cross the same way; a null proxy crosses as a null pointer, so the
// native "… type is null" checks still speak for a missing argument.
%typemap(imtype, out="global::System.IntPtr") SWIGTYPE, SWIGTYPE *, SWIGTYPE &, SWIGTYPE &&, SWIGTYPE []
    "global::Velarion.Interop.NativeHandle"

%typemap(csbody) SWIGTYPE %{
  private readonly global::Velarion.Interop.NativeHandle swigHandle;

  internal $csclassname(global::System.IntPtr cPtr, bool cMemoryOwn) {
    swigHandle = cMemoryOwn ? global::Velarion.Interop.NativeHandle.Owned(cPtr, SwigRelease, this)
                            : global::Velarion.Interop.NativeHandle.Unowned(cPtr);
  }

  // A handle made elsewhere: borrowed from another proxy, or owned by a
  // derived proxy that frees through its own delete export.
  internal $csclassname(global::Velarion.Interop.NativeHandle.Made made) {
    swigHandle = made.Handle;
  }

  // The handle itself, whatever its state (for keeping and lending).
  internal global::Velarion.Interop.NativeHandle SwigHandle => swigHandle;
  // The pointer every member passes: refused once disposed, naming the type.
  internal global::Velarion.Interop.NativeHandle swigCPtr {
    get {
      var handle = swigHandle;
      if (handle.IsDisposed) throw global::Velarion.Interop.NativeHandle.Disposed(this);
      return handle;
    }
  }

  internal static global::Velarion.Interop.NativeHandle getCPtr($csclassname obj) {
    return obj == null ? global::Velarion.Interop.NativeHandle.Null : obj.swigCPtr;
  }

  // Whether this proxy frees its object (false for one borrowed from another).
  internal bool swigCMemOwn => swigHandle.IsOwned;
%}

// Derived proxies share their base's handle: every upcast here keeps the
// address (the base sub-object comes first).
%typemap(csbody_derived) SWIGTYPE %{
  internal $csclassname(global::System.IntPtr cPtr, bool cMemoryOwn)
      : base(cMemoryOwn ? global::Velarion.Interop.NativeHandle.Own($imclassname.$csclazznameSWIGUpcast(cPtr), SwigRelease, typeof($csclassname))
                        : global::Velarion.Interop.NativeHandle.Own($imclassname.$csclazznameSWIGUpcast(cPtr), null, null)) {
  }

  internal $csclassname(global::Velarion.Interop.NativeHandle.Made made) : base(made) {
  }

  internal new global::Velarion.Interop.NativeHandle swigCPtr => base.swigCPtr;

  internal static global::Velarion.Interop.NativeHandle getCPtr($csclassname obj) {
    return obj == null ? global::Velarion.Interop.NativeHandle.Null : obj.swigCPtr;
  }
%}

// The handle finalizes itself: proxies have no finalizer of their own, and
// Dispose is idempotent and safe from any thread.
%typemap(csdispose) SWIGTYPE %{
  /// <summary>
  /// Frees the native object now (or, when it is in a call on another thread
  /// or still used by the device library, as soon as it no longer is). Objects
  /// borrowed from this one are disposed with it. Calling it again does nothing.
  /// </summary>
  public void Dispose() {
    Dispose(true);
    global::System.GC.SuppressFinalize(this);
  }

  /// <summary>Releases this proxy's handle when <paramref name="disposing"/>; the handle finalizes itself otherwise.</summary>
  /// <param name="disposing">true from <see cref="Dispose()"/></param>%}
%typemap(csdispose_derived) SWIGTYPE %{
  /// <inheritdoc/>%}

// $imcall passes `swigCPtr`: here a handle made for the pointer being freed.
%typemap(csdisposing, methodname="Dispose", methodmodifiers="protected", parameters="bool disposing") SWIGTYPE %{{
    if (disposing) swigHandle.Dispose();
  }

  private static void SwigRelease(global::System.IntPtr cPtr) {
    var swigCPtr = global::Velarion.Interop.NativeHandle.ForRelease(cPtr);
    $imcall;
  }%}
%typemap(csdisposing_derived, methodname="Dispose", methodmodifiers="protected", parameters="bool disposing") SWIGTYPE %{{
    base.Dispose(disposing);
  }

  private static void SwigRelease(global::System.IntPtr cPtr) {
    var swigCPtr = global::Velarion.Interop.NativeHandle.ForRelease(cPtr);
    $imcall;
  }%}

// A reference or pointer a member returns points into `this`: borrowed. The
// lists' Repeat and GetRange make new lists, which the caller owns.
%typemap(csout, excode=SWIGEXCODE) SWIGTYPE *Repeat, SWIGTYPE *GetRange {
    global::System.IntPtr cPtr = $imcall;$excode
    return cPtr == global::System.IntPtr.Zero ? null : new $csclassname(cPtr, true);
  }
%typemap(csout, excode=SWIGEXCODE) SWIGTYPE *, SWIGTYPE & {
    global::System.IntPtr cPtr = $imcall;$excode
    return cPtr == global::System.IntPtr.Zero ? null : new $csclassname(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
  }
%typemap(csvarout, excode=SWIGEXCODE2) SWIGTYPE *, SWIGTYPE & %{
    get {
      global::System.IntPtr cPtr = $imcall;$excode
      return cPtr == global::System.IntPtr.Zero ? null : new $csclassname(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
    } %}
%typemap(csvarout, excode=SWIGEXCODE2) SWIGTYPE %{
    get {
      global::System.IntPtr cPtr = $imcall;$excode
      return cPtr == global::System.IntPtr.Zero ? null : new $&csclassname(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
    } %}

// --- Failures and strings from native code -------------------------------------
// VELARION_MODULE_RUNTIME goes in each module's own file (an imported module's
// pragmas are not applied). Registered by each module's PINVOKE class before its first export runs (SWIG
// gives the class a static constructor, so its static fields are set up first). The
// entries themselves are shared: Interop/NativeErrors.cs, Interop/NativeStrings.cs.
%define VELARION_MODULE_RUNTIME
%pragma(csharp) imclasscode=%{
  [global::System.Runtime.InteropServices.DllImport("$dllimport", EntryPoint="SWIGRegisterExceptionCallbacks_$module")]
  private static extern void SWIGRegisterExceptionCallbacks_$module(
      global::Velarion.Interop.NativeErrors.Raise application, global::Velarion.Interop.NativeErrors.Raise arithmetic,
      global::Velarion.Interop.NativeErrors.Raise divideByZero, global::Velarion.Interop.NativeErrors.Raise indexOutOfRange,
      global::Velarion.Interop.NativeErrors.Raise invalidCast, global::Velarion.Interop.NativeErrors.Raise invalidOperation,
      global::Velarion.Interop.NativeErrors.Raise io, global::Velarion.Interop.NativeErrors.Raise nullReference,
      global::Velarion.Interop.NativeErrors.Raise outOfMemory, global::Velarion.Interop.NativeErrors.Raise overflow,
      global::Velarion.Interop.NativeErrors.Raise system);

  [global::System.Runtime.InteropServices.DllImport("$dllimport", EntryPoint="SWIGRegisterExceptionArgumentCallbacks_$module")]
  private static extern void SWIGRegisterExceptionArgumentCallbacks_$module(
      global::Velarion.Interop.NativeErrors.RaiseArgument argument,
      global::Velarion.Interop.NativeErrors.RaiseArgument argumentNull,
      global::Velarion.Interop.NativeErrors.RaiseArgument argumentOutOfRange);

  [global::System.Runtime.InteropServices.DllImport("$dllimport", EntryPoint="SWIGRegisterStringCallback_$module")]
  private static extern void SWIGRegisterStringCallback_$module(global::Velarion.Interop.NativeStrings.Make make);

  private static readonly bool swigRegistered = SwigRegister();

  private static bool SwigRegister() {
    var e = global::Velarion.Interop.NativeErrors.Entries;
    SWIGRegisterExceptionCallbacks_$module(e.Application, e.Arithmetic, e.DivideByZero, e.IndexOutOfRange,
        e.InvalidCast, e.InvalidOperation, e.IO, e.NullReference, e.OutOfMemory, e.Overflow, e.System);
    SWIGRegisterExceptionArgumentCallbacks_$module(e.Argument, e.ArgumentNull, e.ArgumentOutOfRange);
    SWIGRegisterStringCallback_$module(global::Velarion.Interop.NativeStrings.Entry);
    return true;
  }

  // The generated members check for a failure after each call.
  internal static class SWIGPendingException {
    internal static bool Pending => global::Velarion.Interop.NativeErrors.Pending;
    internal static global::System.Exception Retrieve() => global::Velarion.Interop.NativeErrors.Retrieve();
  }
%}
%enddef

// Strings come back as the string callback made them: already decoded, once
// (Interop/NativeStrings.cs).
%typemap(imtype, out="global::System.IntPtr") char *, char[ANY], char[], std::string, const std::string & "string"
%typemap(csout, excode=SWIGEXCODE) char *, char[ANY], char[], std::string, const std::string & {
    string ret = global::Velarion.Interop.NativeStrings.Take($imcall);$excode
    return ret;
  }
%typemap(csvarout, excode=SWIGEXCODE2) char *, char[ANY], char[], std::string, const std::string & %{
    get {
      string ret = global::Velarion.Interop.NativeStrings.Take($imcall);$excode
      return ret;
    } %}

// --- The .NET surface -------------------------------------------------------------
// The generated members keep SWIG's names, which fix their entry points, and
// are internal between these two macros; hand-written partial classes
// (managed/VelarionSharp) make the public surface from them.
%define VELARION_INTERNAL_MEMBERS
%feature("cs:methodmodifiers", "internal");
%enddef
%define VELARION_PUBLIC_MEMBERS
%feature("cs:methodmodifiers", "");
%enddef
