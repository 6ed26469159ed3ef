"""Calls of the interface with checked arguments, and the owners of what they hand out."""

from __future__ import annotations

import ctypes
import operator
from typing import Any, Callable, List, Optional, Type, TypeVar


class LacquerError(Exception):
    """The library refused a call, or an object was used after it had been closed."""


class Handle:
    """What the library handed out, given back when nobody refers to it any more.

    An owner refers to it until it is closed, and so does every view of pixels: the pixels of a closed object stay
    where they are as long as an array still shows them.
    """

    __slots__ = ("value", "release", "keeps", "locks")

    def __init__(self, value: Any, release: Callable[[Any], object], keeps: Optional[Handle] = None) -> None:
        self.value = value
        self.release = release
        self.keeps = keeps  # What has to outlive this one.
        self.locks = 0

    def __del__(self) -> None:
        self.release(self.value)

    def __reduce__(self) -> Any:
        raise TypeError("an object of the library cannot be copied or pickled")


Self = TypeVar("Self", bound="Owner")


class Owner:
    """An object of the library. It is given back by `close`, at the end of a `with` block, or with its last reference.

    One thread at a time may use an object; different objects may be used by different threads, which then run in
    parallel.
    """

    _handle: Optional[Handle] = None

    @classmethod
    def _adopt(cls: Type[Self], handle: Handle) -> Self:
        adopted = cls.__new__(cls)
        adopted._handle = handle
        return adopted

    def _own(self) -> Handle:
        if self._handle is None:
            raise LacquerError(f"this {type(self).__name__} is closed")
        return self._handle

    @property
    def handle(self) -> Any:
        """What the functions of the C interface take for this object; valid until it is closed."""
        return self._own().value

    @property
    def closed(self) -> bool:
        """Whether the object was closed, or turned into another one."""
        return self._handle is None

    def close(self) -> None:
        """Gives the object back; using it afterwards raises LacquerError. Closing it again does nothing."""
        self._handle = None

    def __enter__(self: Self) -> Self:
        self._own()
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __repr__(self) -> str:
        return f"<{type(self).__name__}{' (closed)' if self.closed else ''}>"


def _limits(bits: int, signed: bool) -> range:
    return range(-(1 << bits - 1), 1 << bits - 1) if signed else range(1 << bits)


_LIMITS = {
    ctypes.c_int32: _limits(32, True),
    ctypes.c_uint32: _limits(32, False),
    ctypes.c_uint16: _limits(16, False),
    ctypes.c_uint8: _limits(8, False),
    ctypes.c_size_t: _limits(8 * ctypes.sizeof(ctypes.c_size_t), False),
}


def whole(value: Any, kind: Any) -> int:
    """A whole number that fits into a C type; ctypes would cut off what does not."""
    number = operator.index(value)
    if number not in _LIMITS[kind]:
        raise OverflowError(f"{number} is not between {_LIMITS[kind][0]} and {_LIMITS[kind][-1]}")
    return number


def wholes(values: Any, kind: Any) -> Any:
    """A C array of whole numbers."""
    numbers = [whole(value, kind) for value in values]
    return (kind * len(numbers))(*numbers)


def call(function: Any, *arguments: Any) -> Any:
    """The result of a function of the interface. Raises for arguments of wrong types, too large numbers and closed
    objects."""
    fitting: List[Any] = []
    for argument, kind in zip(arguments, function.argtypes):
        if isinstance(argument, Owner):
            argument = argument.handle
        fitting.append(whole(argument, kind) if kind in _LIMITS else argument)
    try:
        return function(*fitting)
    except ctypes.ArgumentError as error:
        raise TypeError(f"{function.__name__}: {error}") from None


def done(function: Any, *arguments: Any) -> Any:
    """`call` for functions that give zero or null when they refuse, which raises LacquerError."""
    result = call(function, *arguments)
    if not result:
        raise LacquerError(f"{function.__name__} was refused")
    return result


def read(function: Any, record: Any, *arguments: Any) -> Any:
    """The record of a type, filled in by a function that takes a pointer to it as its last argument."""
    out = record()
    done(function, *arguments, ctypes.byref(out))
    return out
