#!/usr/bin/env python3
"""Makes the packages of this folder from the rules of the format.

It shares no code with the product: the base64 text is broken into lines here, by
hand, the way the format wants it. Run it only to add a package; the files that
are here stay as they are, since they are what other programs have written.
"""
import base64
import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent


def chunk(data: bytes) -> str:
    code = base64.b64encode(data).decode("ascii")
    text = ""
    while len(code) >= 72 and (len(code) > 72 or len(data) % 3 == 0):
        text += code[:72] + "\n"
        code = code[72:]
    return text + code + "\n"


def index(package_id, version, count, files):
    text = f"\n<velmar_archive>\n\t<archive_id>{package_id}</archive_id>"
    text += f"\n\t<archive_version>{version}</archive_version>"
    text += f"\n\t<archive_file_count>{count}</archive_file_count>\n"
    for file_id, file_version, description, name, data in files:
        text += f"\n\t<archive_file>\n\t\t<file_id>{file_id}</file_id>"
        text += f"\n\t\t<file_version>{file_version}</file_version>"
        text += f"\n\t\t<file_description>{description}</file_description>"
        text += f"\n\t\t<file_name>{name}</file_name>"
        text += f"\n\t\t<file_size>{len(data)}</file_size>"
        text += f"\n\t\t<file_chunk>{chunk(data)}</file_chunk>\n\t</archive_file>\n"
    return text


def closed(text: str) -> bytes:
    body = bytes(255 - byte for byte in text.encode("utf-8"))
    total = 0
    for at in range(0, len(body) - 1, 2):
        total += body[at] + 256 * body[at + 1]
    field = (total & 0xFFFFFFFF).to_bytes(4, "little")
    field = bytes(byte if byte != 0 else 1 for byte in field)
    return b"*VELARC*1" + b"0" * 51 + field + body


def opened(text: str) -> bytes:
    return b"*VELARC*1" + b"0" * 51 + b"0000" + bytes(255 - byte for byte in text.encode("utf-8"))


def write(name: str, content: bytes):
    (FOLDER / name).write_bytes(content)


TAIL = "</velmar_archive>"
IMAGE = bytes((7 * i + 3) % 256 for i in range(200))
BOTH = [
    ("emulex.grp", "11.2.156.27", "Controller firmware", "emulex.grp", IMAGE),
    ("emulex", "1", "Notes", "notes.txt", b"ok"),
]
LENGTHS = [
    (f"length{n}", str(n), "", f"{n}.bin", IMAGE[:n])
    for n in (0, 1, 2, 3, 53, 54, 55, 107, 108, 109)
]

if __name__ == "__main__":
    write("two-files.pkg", closed(index("CORVANE2", "1.0", 2, BOTH) + TAIL))
    write("odd-body.pkg", closed(index("CORVANE2", "1.0.", 2, BOTH) + TAIL))
    write("no-files.pkg", closed(index("EMPTY", "0", 0, []) + TAIL))
    write("lengths.pkg", closed(index("LENGTHS", "1", 10, LENGTHS) + TAIL))
    write("after-begin.pkg", opened(index("CORVANE2", "1.0", 2, [])))
    write("after-add.pkg", opened(index("CORVANE2", "1.0", 2, BOTH[:1])))
    write("after-refused-end.pkg", opened(index("CORVANE2", "1.0", 2, BOTH[:1]) + TAIL))
    write("image.bin", IMAGE)
