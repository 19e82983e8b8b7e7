"""A stand-in for pywin32's module, as far as the example uses it."""


class com_error(Exception):
    """What pywin32 raises: (hresult, text, excepinfo, argument)."""

    def __init__(self, result, source, description):
        self.hresult = result
        self.excepinfo = (0, source, description, None, 0, result)
        super().__init__(result, description, self.excepinfo, None)
