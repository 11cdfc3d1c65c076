// A shared library without anything.
