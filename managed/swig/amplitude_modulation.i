// Amplitude modulation: control points, collection, emitter.
