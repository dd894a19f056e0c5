"""vrk3 extract, and what is recovered from archives without a header."""
import csv
import json
import os
import random
import re
import struct
import unittest

from support import Case, block, header, index

SAMPLE = os.environ["VRK3_SAMPLE"]


class Extract(Case):
    def test_extract(self):
        """Every stream comes out as it was written, and the index says where each block is."""
        for seed in range(20):
            rnd = random.Random(seed)
            types = {i: rnd.choice((1, 2, 4, 8, 16)) for i in rnd.sample(range(180), rnd.randint(1, 9))}
            data = header("", [(i, t, "", "", "") for i, t in types.items()])
            streams, rows, open_blocks = {i: b"" for i in types}, [], {}
            for group in range(1, 4):
                data += index(bytes(group))
                for i in rnd.choices(list(types), k=40):
                    extension = (rnd.randrange(2999), 4, rnd.randrange(256)) if types[i] == 1 else (0, 0, 0)
                    piece, row = rnd.randbytes(rnd.choice((0, 1, 9, 700))), open_blocks.pop(i, None)
                    kind = rnd.choice((2, 3) if row is None else (0, 1))
                    if row is None:
                        row = [b"", len(data), *extension, group, i, types[i]]
                    begins = types[i] == 1 and kind > 1
                    data += block(i, piece, kind, struct.pack("<HBB", *extension) if begins else b"")
                    row[0] += piece
                    if kind in (0, 2):
                        open_blocks[i] = row
                    else:
                        rows.append([len(streams[i]), len(row[0]), *row[1:]])
                        streams[i] += row[0]
                open_blocks.clear()  # an IDX record abandons them
            self.write("a.vrk3", data)
            status, _, errors = self.vrk3("extract", "-qyd", ".", "--stream", "all", "--index", "i.csv", "a.vrk3")
            self.assertEqual((status, errors), (0, ""))
            self.assertEqual({i: self.read(f"a.{i}.bin") for i in types}, streams)
            found = list(csv.reader(self.read("i.csv").decode().splitlines()))[1:]
            self.assertEqual([list(map(int, row)) for row in found], rows)

    def test_extract_names(self):
        starts = (b"\xff\xd8\xff\xe0", b"\x89PNG\r\n\x1a\n", b"RIFF1234WAVE", b"\0\0\0\1\x67", b"\0\0\1\xba", b"text")
        self.write("a.vrk3", header("", [(i, 2, "", "", "") for i in range(7)]) + index() +
                   b"".join(block(i, start) for i, start in enumerate(starts)))
        self.write("a.3.h264", b"old")
        self.path("d%1").mkdir()
        self.path("link").symlink_to("d%1/../new")
        self.assertTranscript("extract.txt")
        self.assertEqual(self.files(), sorted(["a.vrk3", "b", "i.csv", "link", *(
            f"{folder}a.{name}" for folder in ("", "d%1/") for name in (
                "0.jpg", "1.png", "2.wav", "3.h264", "4.mpg", "5.bin", "6.bin"))]))

    def test_header_from(self):
        """The rest of an archive loses no sentence that is whole in it, and offsets are those in the rest."""
        with open(SAMPLE, "rb") as file:
            data = file.read()
        text = self.vrk3("convert", "-qt", "raw", "-o", "-", SAMPLE)[1]
        for start in (5000, len(data) - 100000, 445177, 7000, 40):
            self.write("rest.vrk3", data[start:])
            options = "--header-from", SAMPLE, "rest.vrk3"
            rest = self.vrk3("convert", "-qt", "raw", "-o", "-", *options)[1]
            first = re.search(rb"\$[^$]*\*..\r\n", rest).start()
            self.assertTrue(text.endswith(rest[first:]))
            whole = re.findall(rb"\$GP[A-Z,.0-9]*\*..\r\n", data[start:])
            self.assertEqual([s for s in whole if s in text and s not in rest], [])
            self.assertEqual(self.vrk3("track", "-qo", "-", *options)[::2], (0, ""))
            if start == 5000:
                self.assertIn("(see --header-from)", self.vrk3("track", "-qo", "-", "rest.vrk3")[2])
            found = json.loads(self.vrk3("info", "--json", *options)[1])[0]
            self.assertEqual(sum(found["bytes"].values()), 2 * len(data[start:]))
            self.vrk3("extract", "-qyo", "x", "--stream", "2:2", "--index", "i", *options)
            for at, size, offset, *_ in csv.reader(self.read("i").decode().splitlines()[1:]):
                found = int(offset) + 4
                self.assertEqual(data[start:][found:found + int(size)], self.read("x")[int(at):int(at) + int(size)])


if __name__ == "__main__":
    unittest.main()
