// The shared library is the rooms, whole; it has no code of its own.
