#!/usr/bin/env python3
"""Whole-program check of vrkplot on hostile input: every case ends in bounded memory and time.

Usage: bench/hostile-inputs.py [--memory-mib 64] [--seconds 10] [--keep]

Writes each input into a scratch folder, runs build/bin/vrkplot on it once, and checks:
- the exit status (0 for a plot that must come out, 2 for input that must be refused),
- the message on standard error, where there must be one,
- the peak resident memory of the process (wait4's ru_maxrss) against --memory-mib,
- the wall time against --seconds,
- that a refused job leaves no output file and no temporary file.
Prints one line per case and exits 1 when any case fails.

Paths (environment variables override them):
  VRK_BUILD_DIR   the release build (default: build/ in the repository)
Standard library only.
"""
import argparse
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "bench", "pdf"))
from pdfwriter import PdfWriter, simple_document  # noqa: E402


def png_chunk(kind, data, length=None):
    size = len(data) if length is None else length
    crc = zlib.crc32(kind + data) & 0xFFFFFFFF
    return struct.pack(">I", size) + kind + data + struct.pack(">I", crc)


def png(width, height, rows, extra=b""):
    header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + extra +
            png_chunk(b"IDAT", zlib.compress(rows)) + png_chunk(b"IEND", b""))


# Inputs refused only once they have been partly drawn may take more memory than the others, and
# still a bounded amount: an SVG file whose uses multiply one line a billion times is refused when
# its copies pass the importer's limit of elements, which a real drawing of that size would hold.
MEMORY_MIB = {"usebomb.svg": 160.0,
              # A PDF page is drawn in a child process that is stopped when its memory has grown by
              # 256 MiB: the process it was forked from, the growth and the last 10 ms before the
              # stop.
              "formbomb.pdf": 340.0,
              # The same bound holds while the child opens a document.
              "xref.pdf": 340.0}

# The inputs are written by a child process of their own (--generate): the runner stays small, so
# that the memory of the vrkplot processes it forks is theirs and not the inputs' it built.
GENERATE = False


def write(folder, name, make):
    """Writes make() (bytes or text) into the folder when generating."""
    path = os.path.join(folder, name)
    if GENERATE:
        data = make()
        with open(path, "wb") as f:
            f.write(data if isinstance(data, bytes) else data.encode())
    return path


def cases(folder):
    """(name, job, vrkplot arguments, environment, expected status, expected message part)."""
    rng = random.Random(13)
    out = []

    # A polyline of 5,000,000 points on one line: longer than a job line may be.
    write(folder, "poly5m.job", lambda: "Begin\nDrawPolyline 5000000 " + " ".join(
        "%d %d" % (i % 200, (i * 7) % 280) for i in range(5000000)) + "\nEnd\n")
    out.append(("polyline of 5 M points", "poly5m.job", ["-l", "HPGL2"], {}, 2,
                "the line is longer than 1048576 bytes"))

    # The longest polyline a line holds, through the general reader (a bad last token).
    write(folder, "ones.job", lambda: "Begin\nDrawPolyline 262135 " + "1 " * 524269 + "x\nEnd\n")
    out.append(("1 MiB line of tokens, refused", "ones.job", ["-l", "HPGL2"], {}, 2,
                "is not a number"))
    write(folder, "ones-ok.job", lambda: "Begin\nDrawPolyline 262135 " + "1 " * 524270 + "\nEnd\n")
    out.append(("1 MiB line of tokens, played", "ones-ok.job", ["-l", "HPGL"], {}, 0, None))

    # A text of 1,000,000 characters drawn as geometry by a pen plotter, pen chosen or not.
    write(folder, "text1m.job", lambda: 'Begin\nDrawText 10 10 "%s"\nEnd\n' % ("A" * 1000000))
    out.append(("text of 1 M characters, no pen", "text1m.job", ["-l", "HPGL"], {}, 0,
                "the plot draws nothing"))
    write(folder, "text100k.job", lambda:
          'Begin\nDefineColor 1 0 0 0\nSelectDrawColor 1\nDrawText 10 10 "%s"\nEnd\n' %
          ("A" * 100000))
    out.append(("text of 100 k characters, hatched", "text100k.job", ["-l", "HPGL"], {}, 0, None))

    # A comment line of 50 MB.
    write(folder, "comment.job", lambda: "Begin\n#" + "c" * 50000000 + "\nEnd\n")
    out.append(("comment line of 50 MB", "comment.job", ["-l", "HPGL2"], {}, 2,
                "the line is longer than 1048576 bytes"))

    # A fill that claims a billion points.
    write(folder, "fill1e9.job", lambda: "Begin\nFillArea 1 1000000000 1 2 3 4\nEnd\n")
    out.append(("fill claiming 1e9 points", "fill1e9.job", ["-l", "HPGL2"], {}, 2,
                "coordinates; 4 given"))

    # PNG files: a text chunk that claims 2 GiB, and one pixel a metre.
    rows = b"".join(b"\0" + b"\x80" * 4 for _ in range(4))
    big = png(4, 4, rows, struct.pack(">I", 0x7FFFFFF0) + b"tEXt" + b"x" * 20)
    write(folder, "chunk.png", lambda: big)
    write(folder, "chunk.job", lambda: 'Begin\nDrawBitmap 10 10 "chunk.png"\nEnd\n')
    out.append(("PNG chunk claiming 2 GiB", "chunk.job", ["-l", "HPGL2"], {}, 2,
                "the file ends before the image does"))
    side = 2000
    phys = png_chunk(b"pHYs", struct.pack(">IIB", 1, 1, 1))
    write(folder, "phys.png",
          lambda: png(side, side, b"".join(b"\0" + bytes(side) for _ in range(side)), phys))
    write(folder, "phys.job", lambda: 'Begin\nDrawBitmap 10 10 "phys.png"\nEnd\n')
    out.append(("PNG of one pixel a metre", "phys.job", ["-l", "HPGL2"], {}, 2,
                "an image may be at most 100 m on either side"))

    # Settings: nested 29,400 deep; an element of 300,000 attributes; a pen 1e-30 mm wide.
    write(folder, "deep.xml", lambda: "<a>" * 29400 + "</a>" * 29400)
    write(folder, "small.job", lambda: "Begin\nDefineColor 1 0 0 0\nSelectDrawColor 1\n"
          "FillArea 1 4 10 10 60 10 60 60 10 60\nEnd\n")
    out.append(("settings nested 29,400 deep", "small.job",
                ["-l", "HPGL2", "--settings", "deep.xml"], {}, 2, "nested more than 256 deep"))
    write(folder, "attrs.xml", lambda: "<HPGL2Properties " +
          " ".join('a%d="1"' % i for i in range(300000)) + "/>")
    out.append(("settings element of 300,000 attributes", "small.job",
                ["-l", "HPGL2", "--settings", "attrs.xml"], {}, 2, "larger than 1 MiB"))
    write(folder, "attrs-ok.xml", lambda: "<HPGL2Properties " +
          " ".join('a%d="1"' % i for i in range(60000)) + ' quality="50"/>')
    out.append(("settings element of 60,000 attributes", "small.job",
                ["-l", "HPGL2", "--settings", "attrs-ok.xml"], {}, 0, None))
    pens = "".join('<pen number="%d" red="0" green="0" blue="0" width="1e-30" enable="YES"/>' % n
                   for n in range(1, 32))
    write(folder, "thin.xml", lambda: '<HPGLProperties origin="Lower Left Corner"><pens>%s</pens>'
          "</HPGLProperties>" % pens)
    out.append(("hatch with pens 1e-30 mm wide", "small.job",
                ["-l", "HPGL", "--settings", "thin.xml"], {}, 0, None))

    # A colour table of 16 MB and 100 colour changes.
    tables = os.path.join(folder, "tables")
    if GENERATE:
        os.mkdir(tables)
        with open(os.path.join(tables, "ColorTable"), "w") as f:
            size = 0
            while size < 16 * 1024 * 1024:
                line = "%d %d %d %d\n" % (rng.randrange(256), rng.randrange(256),
                                          rng.randrange(256), rng.randrange(1, 32))
                f.write(line)
                size += len(line)
    job = ["Begin"]
    for i in range(100):
        job += ["DefineColor %d %f %f %f" % (i + 1, rng.random(), rng.random(), rng.random()),
                "SelectDrawColor %d" % (i + 1), "MoveTo %d 10" % i, "LineTo %d 20" % i]
    write(folder, "colors.job", lambda: "\n".join(job + ["End"]) + "\n")
    out.append(("colour table of 16 MB, 100 changes", "colors.job", ["-l", "HPGL"],
                {"HPGL2_COLOR_TABLE": "1", "TMPDIR": tables + "/"}, 0, None))

    # Values whose plotter units do not fit the plotter's range.
    for i, (line, language) in enumerate([("MoveTo 6e7 1", "HPGL2"), ('DrawText 10 1e12 "x"', "HPGL2"),
                                          ("SetDrawWidth 3e38", "HPGL")]):
        write(folder, "range%d.job" % i, lambda line=line: "Begin\n%s\nEnd\n" % line)
        out.append(("range: " + line, "range%d.job" % i, ["-l", language], {}, 2,
                    "is beyond the plotter's range"))
    write(folder, "range-form.job", lambda: "Begin width=3e38\nEnd\n")
    out.append(("range: Begin width=3e38", "range-form.job", ["-l", "HP1000GL2"], {}, 2,
                "is beyond the plotter's range"))
    write(folder, "outline.job", lambda: "Begin textAsGeometry=1\nSetTextAttribute 7 1e38\n"
          'DrawText 10 10 "x"\nEnd\n')
    out.append(("text attribute 7 of 1e38", "outline.job", ["-l", "HPGL2"], {}, 0, None))

    # A fill of 3,000 random vertices, hatched by a pen plotter.
    points = " ".join("%.3f %.3f" % (rng.uniform(10, 200), rng.uniform(10, 280))
                      for _ in range(3000))
    write(folder, "fill3000.job", lambda: "Begin\nDefineColor 1 0 0 0\nSelectDrawColor 1\n"
          "SelectFillColor 1\nFillArea 1 3000 %s\nEnd\n" % points)
    out.append(("hatch of a 3,000-vertex fill", "fill3000.job", ["-l", "HPGL"], {}, 0, None))

    # SVG drawings.
    svg = '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" ' \
          'width="100mm" height="100mm" viewBox="0 0 100 100">%s</svg>'
    laughs = ['<!ENTITY l0 "lol">'] + ['<!ENTITY l%d "%s">' % (i, ("&l%d;" % (i - 1)) * 10)
                                       for i in range(1, 10)]
    write(folder, "laughs.svg", lambda: '<?xml version="1.0"?>\n<!DOCTYPE svg [%s]>\n' %
          "".join(laughs) + svg % "<text x='1' y='5'>&l9;</text>")
    out.append(("SVG: a billion laughs", "laughs.svg", ["-l", "HPGL2"], {}, 2, "laughs.svg:"))
    write(folder, "secret.txt", lambda: "not for plotting\n")
    write(folder, "external.svg", lambda: '<?xml version="1.0"?>\n<!DOCTYPE svg [<!ENTITY x '
          'SYSTEM "secret.txt">]>\n' + svg % "<text x='1' y='5'>&x;</text>")
    out.append(("SVG: an external entity", "external.svg", ["-l", "HPGL2"], {}, 2,
                "external.svg:"))
    write(folder, "deep.svg", lambda: svg % ("<g>" * 100000 + "</g>" * 100000))
    out.append(("SVG: groups nested 100,000 deep", "deep.svg", ["-l", "HPGL2"], {}, 2,
                "deep.svg:"))
    write(folder, "self.svg", lambda: svg % '<g id="a"><use xlink:href="#a"/></g>')
    out.append(("SVG: a use of its own group", "self.svg", ["-l", "HPGL2"], {}, 2, "self.svg:"))
    # Ten uses of ten uses of ... nine levels deep: a billion copies of one line.
    bomb = ['<path id="u0" d="M0 0L1 1" stroke="black"/>']
    for level in range(1, 10):
        bomb.append('<g id="u%d">%s</g>' % (level, "".join(
            '<use xlink:href="#u%d"/>' % (level - 1) for _ in range(10))))
    write(folder, "usebomb.svg", lambda: svg % ("<defs>%s</defs><use xlink:href='#u9'/>" %
                                                "".join(bomb)))
    out.append(("SVG: a billion lines through uses", "usebomb.svg", ["-l", "HPGL"], {}, 2,
                "usebomb.svg:"))
    write(folder, "huge.svg", lambda: svg % '<path d="M1e300 1e300 L-1e308 5e307 L 1 1" '
          'stroke="black" stroke-width="1e38"/><rect width="1e39" height="1e39"/>')
    out.append(("SVG: huge numbers", "huge.svg", ["-l", "HPGL2"], {}, 0, None))
    write(folder, "cut.svg", lambda: (svg % '<rect x="10" y="10" width="10" height="10"/>')[:-20])
    out.append(("SVG: a truncated file", "cut.svg", ["-l", "HPGL2"], {}, 2, "cut.svg:"))
    write(folder, "missing.svg", lambda: svg % '<image width="10" height="10" '
          'xlink:href="nowhere.png"/>')
    out.append(("SVG: a missing linked image", "missing.svg", ["-l", "HPGL2"], {}, 2,
                "nowhere.png"))
    out += pdf_cases(folder)
    return out


def pdf_page(content, resources=b"", box=b"0 0 595 842", count=1, objects=()):
    """A document of one page: `content` its content stream (bytes, or a function that adds the
    stream to the writer and gives its number), `objects` a list of functions that add objects to
    the writer and give their resource entries."""
    doc = PdfWriter()
    catalog = doc.reserve()
    tree = doc.reserve()
    entries = b"".join(add(doc) for add in objects)
    stream = content(doc) if callable(content) else doc.add_stream(content)
    page = doc.add(b"<< /Type /Page /Parent %d 0 R /MediaBox [%s] /Resources << %s %s >> "
                   b"/Contents %d 0 R >>" % (tree, box, resources, entries, stream))
    doc.set(catalog, b"<< /Type /Catalog /Pages %d 0 R >>" % tree)
    doc.set(tree, b"<< /Type /Pages /Kids [%d 0 R] /Count %d >>" % (page, count))
    return doc, catalog


def form_tree(levels, fan, leaf):
    """Form F draws form F' `fan` times, and so on `levels` deep, the innermost drawing `leaf`:
    fan ** levels leaves in a few hundred bytes."""
    def add(doc):
        form = b"/Type /XObject /Subtype /Form /BBox [0 0 10 10]"
        inner = doc.add_stream(leaf, form)
        for _ in range(levels):
            inner = doc.add_stream(b"/F Do " * fan, form + b" /Resources << /XObject << /F %d 0 R "
                                   b">> >>" % inner)
        return b"/XObject << /F %d 0 R >>" % inner
    doc, catalog = pdf_page(b"/F Do", objects=[add])
    return doc.finish(catalog)


def self_form():
    def add(doc):
        form = doc.reserve()
        doc.set(form, b"<< /Length 12 /Type /XObject /Subtype /Form /BBox [0 0 10 10] "
                b"/Resources << /XObject << /F %d 0 R >> >> >>\nstream\n/F Do /F Do\nendstream" %
                form)
        return b"/XObject << /F %d 0 R >>" % form
    doc, catalog = pdf_page(b"0 0 m 100 100 l S /F Do", objects=[add])
    return doc.finish(catalog)


def flate_bomb():
    """A content stream of 2 GiB of spaces in 2 MB of FlateDecode."""
    packer = zlib.compressobj(9)
    block = b" " * (1 << 20)
    data = b"".join([packer.compress(block) for _ in range(2048)] + [packer.flush()])
    doc, catalog = pdf_page(lambda doc: doc.add(b"<< /Length %d /Filter /FlateDecode >>\nstream\n" %
                                                len(data) + data + b"\nendstream"))
    return doc.finish(catalog)


def huge_image():
    """Twelve bytes of pixels for an image that claims a million pixels a side (3 TB)."""
    def add(doc):
        image = doc.add_stream(b"abcdefghijkl", b"/Type /XObject /Subtype /Image /Width 1000000 "
                               b"/Height 1000000 /ColorSpace /DeviceRGB /BitsPerComponent 8")
        return b"/XObject << /I %d 0 R >>" % image
    doc, catalog = pdf_page(b"q 500 0 0 500 10 10 cm /I Do Q", objects=[add])
    return doc.finish(catalog)


def encrypted():
    doc, catalog = pdf_page(b"0 0 m 10 10 l S")
    crypt = doc.add(b"<< /Filter /Standard /V 1 /R 2 /O <" + b"11" * 32 + b"> /U <" + b"22" * 32 +
                    b"> /P -4 >>")
    return doc.finish(catalog, b"/Encrypt %d 0 R /ID [<00112233445566778899aabbccddeeff> "
                      b"<00112233445566778899aabbccddeeff>]" % crypt)


def pdf_cases(folder):
    out = []
    plain = simple_document([b"0 0 m 100 100 l S 10 10 50 50 re f"] * 3)
    write(folder, "cut.pdf", lambda: plain[:len(plain) // 2])
    out.append(("PDF: a truncated file", "cut.pdf", ["-l", "HPGL2"], {}, 2,
                "cut.pdf: the document is damaged"))
    write(folder, "count.pdf",
          lambda: (lambda d: d[0].finish(d[1]))(pdf_page(b"0 0 m 9 9 l S", count=2000000000)))
    out.append(("PDF: a claim of 2e9 pages", "count.pdf", ["-l", "HPGL2"], {}, 2,
                "count.pdf: the document has no pages"))
    write(folder, "formbomb.pdf", lambda: form_tree(6, 10, b"0 0 m 1 1 l S"))
    out.append(("PDF: a million lines through forms", "formbomb.pdf", ["-l", "HPGL2"], {}, 2,
                "formbomb.pdf: page 1: drawing the page takes more than 256 MiB of memory"))
    write(folder, "formloop.pdf", lambda: form_tree(7, 10, b"q Q"))
    out.append(("PDF: ten million empty forms", "formloop.pdf", ["-l", "HPGL2"], {}, 2,
                "formloop.pdf: page 1: the page takes more than 5 seconds to draw"))
    write(folder, "formdeep.pdf", lambda: form_tree(100000, 1, b"0 0 m 1 1 l S"))
    out.append(("PDF: forms nested 100,000 deep", "formdeep.pdf", ["-l", "HPGL2"], {}, 0, None))
    write(folder, "formself.pdf", self_form)
    out.append(("PDF: a form that draws itself", "formself.pdf", ["-l", "HPGL2"], {}, 0, None))
    write(folder, "flate.pdf", flate_bomb)
    out.append(("PDF: 2 GiB of content in 2 MB", "flate.pdf", ["-l", "HPGL2"], {}, 2,
                "flate.pdf: page 1: the page takes more than 5 seconds to draw"))
    write(folder, "locked.pdf", encrypted)
    out.append(("PDF: encrypted", "locked.pdf", ["-l", "HPGL2"], {}, 2,
                "locked.pdf: the document is encrypted; it needs a password"))
    write(folder, "mediabox.pdf",
          lambda: (lambda d: d[0].finish(d[1]))(pdf_page(b"0 0 m 9 9 l S", box=b"0 0 1e30 1e30")))
    out.append(("PDF: a MediaBox of 1e30 points", "mediabox.pdf", ["-l", "HPGL2"], {}, 0, None))
    write(folder, "image.pdf", huge_image)
    out.append(("PDF: an image a million pixels a side", "image.pdf", ["-l", "HPGL2"], {}, 2,
                "image.pdf: page 1: the page takes more than 5 seconds to draw"))
    write(folder, "xref.pdf", lambda: b"%PDF-1.7\n1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\n"
          b"endobj\n2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\nendobj\n3 0 obj\n"
          b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 100 100] >>\nendobj\n20000153 0 obj\n"
          b"<< >>\nendobj\ntrailer\n<< /Root 1 0 R >>\n%%EOF\n")
    out.append(("PDF: object 20,000,153, no xref table", "xref.pdf", ["-l", "HPGL2"], {}, 2,
                "xref.pdf: opening the document takes more than 256 MiB of memory"))
    write(folder, "noise.pdf", lambda: b"%PDF-1.7\n" + bytes(range(256)) * 40)
    out.append(("PDF: a header on other bytes", "noise.pdf", ["-l", "HPGL2"], {}, 2,
                "noise.pdf: the document is damaged"))
    return out


def run(vrkplot, folder, job, arguments, environment, seconds):
    output = os.path.join(folder, "out.plt")
    if os.path.exists(output):
        os.remove(output)
    env = dict(os.environ)
    env.update(environment)
    start = time.monotonic()
    process = subprocess.Popen([vrkplot, job, "-o", output, "-q"] + arguments, cwd=folder,
                               env=env, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    # The messages are short: standard error is read once the process has ended.
    deadline = start + seconds
    while True:
        pid, status, usage = os.wait4(process.pid, os.WNOHANG)
        if pid != 0:
            break
        if time.monotonic() > deadline:
            process.kill()
            pid, status, usage = os.wait4(process.pid, 0)
            break
        time.sleep(0.01)
    elapsed = time.monotonic() - start
    message = process.stderr.read().decode(errors="replace")
    process.stderr.close()
    code = os.waitstatus_to_exitcode(status)
    return code, message, usage.ru_maxrss / 1024.0, elapsed, os.path.exists(output)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--memory-mib", type=float, default=64.0)
    parser.add_argument("--seconds", type=float, default=10.0)
    parser.add_argument("--keep", action="store_true", help="keep the scratch folder")
    parser.add_argument("--generate", metavar="FOLDER", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.generate:
        global GENERATE
        GENERATE = True
        cases(options.generate)
        return
    build = os.environ.get("VRK_BUILD_DIR", os.path.join(ROOT, "build"))
    vrkplot = os.path.join(build, "bin", "vrkplot")
    if not os.access(vrkplot, os.X_OK):
        sys.exit("hostile-inputs: %s is missing; build first" % vrkplot)
    folder = tempfile.mkdtemp(prefix="vrk-hostile-")
    failures = 0
    try:
        subprocess.run([sys.executable, os.path.abspath(__file__), "--generate", folder],
                       check=True)
        for name, job, arguments, environment, status, message in cases(folder):
            code, err, mib, elapsed, written = run(vrkplot, folder, job, arguments, environment,
                                                   options.seconds)
            problems = []
            if code != status:
                problems.append("exit status %d, not %d" % (code, status))
            if message is not None and message not in err:
                problems.append("no message '%s'" % message)
            if mib > MEMORY_MIB.get(job, options.memory_mib):
                problems.append("%.1f MiB" % mib)
            if elapsed > options.seconds:
                problems.append("%.1f s" % elapsed)
            if status != 0 and written:
                problems.append("output left behind")
            leftovers = [f for f in os.listdir(folder) if f.endswith(".tmp")]
            if leftovers:
                problems.append("temporary files left: %s" % ", ".join(leftovers))
            print("%-44s exit %d  %6.1f MiB  %5.2f s  %s" %
                  (name, code, mib, elapsed, "ok" if not problems else "; ".join(problems)))
            if problems:
                failures += 1
                if err:
                    print("    " + err.strip().replace("\n", "\n    ")[:400])
    finally:
        if options.keep:
            print("inputs kept in", folder)
        else:
            shutil.rmtree(folder)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
