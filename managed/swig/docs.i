// Documentation for the generated members that are public as SWIG makes
// them (constructors, enum values, record fields): the XML comment travels in
// the member's modifiers, so IntelliSense shows it like any hand-written one.
#ifndef VELARION_DOCS_I
#define VELARION_DOCS_I

%define VELARION_DOC(member, text)
%csmethodmodifiers member "/// <summary>" text "</summary>\n  public";
%enddef
// The same with one more top-level element (an <exception>, a <remarks>).
%define VELARION_DOC2(member, text, more)
%csmethodmodifiers member "/// <summary>" text "</summary>\n  /// " more "\n  public";
%enddef

// Generated members become internal between these two; the public surface is
// written by hand in the partial classes under managed/VelarionSharp/.
%define VELARION_INTERNAL_BEGIN
%feature("cs:methodmodifiers", "internal");
%enddef
%define VELARION_INTERNAL_END
%feature("cs:methodmodifiers", "");
%enddef

#endif
