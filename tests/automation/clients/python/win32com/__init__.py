"""A stand-in for pywin32's package, as far as the example uses it."""
