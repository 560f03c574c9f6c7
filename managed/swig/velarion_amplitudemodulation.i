// The `velarion_amplitudemodulation` interop module: amplitude-modulated
// control points, their collection and the amplitude modulation emitter.
%module(directors="1") velarion_amplitudemodulation

%import "velarion.i"
%include "common.i"
%include "amplitude_modulation.i"

VELARION_MODULE_RUNTIME
