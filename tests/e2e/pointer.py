"""What the X server knows of the mouse."""

import ctypes
import os

BUTTONS = 0x1F00  # the masks of the five buttons


class Pointer:
    """The place of the pointer and whether a button is held, as the server has passed it on to the windows.

    A window manager holds back a click on a window without the keyboard until it has given the keyboard to it. What the
    mouse does meanwhile waits in the server, and a release then gets the place of the moves behind it.
    """

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XQueryPointer.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + 7 * [ctypes.c_void_p]
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(os.fsencode(display)))
        self.root = self.x11.XDefaultRootWindow(self.display)

    def look(self):
        """(x, y, held), in pixels of the screen."""
        windows = ctypes.c_ulong(), ctypes.c_ulong()
        numbers = [ctypes.c_int() for _ in range(4)]
        mask = ctypes.c_uint()
        self.x11.XQueryPointer(self.display, self.root, *(ctypes.byref(value) for value in (*windows, *numbers, mask)))
        return numbers[0].value, numbers[1].value, bool(mask.value & BUTTONS)

    def close(self):
        self.x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.x11.XCloseDisplay(self.display)
