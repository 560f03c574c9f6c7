// Time-point streaming: emitter and emission callback wrapper.
