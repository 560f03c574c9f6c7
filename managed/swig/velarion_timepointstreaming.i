// The `velarion_timepointstreaming` interop module: the streaming emitter and
// the emission callback bridge.
%module(directors="1") velarion_timepointstreaming

%import "velarion.i"
%include "common.i"
%include "timepoint_streaming.i"

VELARION_MODULE_RUNTIME
