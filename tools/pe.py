"""The import and export tables of a Windows DLL or program, 32 or 64 bits. For the checkers beside this file."""
import struct


class Image:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        header = self._number("<I", 0x3C)
        if self.data[:2] != b"MZ" or self.data[header:header + 4] != b"PE\0\0":
            raise ValueError(f"{path}: no Windows module")
        sections, optional_size = self._number("<H", header + 6), self._number("<H", header + 20)
        optional = header + 24
        self.width = {0x10B: 32, 0x20B: 64}[self._number("<H", optional)]
        self._directories = optional + (96 if self.width == 32 else 112)
        table = optional + optional_size
        self._sections = [struct.unpack_from("<IIII", self.data, table + 40 * i + 8) for i in range(sections)]

    def _number(self, kind, offset):
        return struct.unpack_from(kind, self.data, offset)[0]

    def _offset(self, address):
        """Where in the file a relative virtual address stands."""
        for size, start, raw_size, raw in self._sections:
            if start <= address < start + max(size, raw_size):
                return address - start + raw
        raise ValueError(f"address {address:#x} is in no section")

    def _text(self, address):
        begin = self._offset(address)
        return self.data[begin:self.data.index(b"\0", begin)].decode("ascii")

    def imports(self):
        """Pairs of DLL (as written) and name, or "#" and the ordinal."""
        directory = self._number("<I", self._directories + 8)
        found = []
        if not directory:
            return found
        entry = self._offset(directory)
        kind, size, by_ordinal = ("<I", 4, 1 << 31) if self.width == 32 else ("<Q", 8, 1 << 63)
        while True:
            names, _, _, library, slots = struct.unpack_from("<IIIII", self.data, entry)
            if not library:
                return found
            thunk = self._offset(names or slots)
            while (value := self._number(kind, thunk)):
                name = f"#{value & 0xFFFF}" if value & by_ordinal else self._text(value + 2)
                found.append((self._text(library), name))
                thunk += size
            entry += 20

    def exports(self):
        """The exported names."""
        directory = self._number("<I", self._directories)
        if not directory:
            return []
        count, _, names = struct.unpack_from("<III", self.data, self._offset(directory) + 24)
        if not count:
            return []
        table = self._offset(names)
        return [self._text(self._number("<I", table + 4 * i)) for i in range(count)]
