// Gives the shared precompiled header a target of its own.
