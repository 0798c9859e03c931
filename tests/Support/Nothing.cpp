// A target needs a source; this one has only headers to read.
