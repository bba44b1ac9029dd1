#!/usr/bin/env python3
"""Writes the seed corpus of the pdf fuzz target into FOLDER: small PDF documents, each reaching a
part of the reader (paths, curves, fills and their rules, strokes with caps, joins and dashes,
colour spaces, text in a standard font, an image, forms, several pages, compressed streams,
clipping, a damaged cross-reference table). Standard library only.

Usage: fuzz/make-pdf-seeds.py FOLDER
"""
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "bench", "pdf"))
from pdfwriter import PdfWriter, simple_document  # noqa: E402


def form_document():
    doc = PdfWriter()
    catalog = doc.reserve()
    tree = doc.reserve()
    leaf = doc.add_stream(b"0 0 1 rg 0 0 10 10 re f", b"/Type /XObject /Subtype /Form "
                          b"/BBox [0 0 10 10]")
    form = doc.add_stream(b"q 2 0 0 2 0 0 cm /L Do Q 20 0 m 30 10 l S",
                          b"/Type /XObject /Subtype /Form /BBox [0 0 40 40] "
                          b"/Resources << /XObject << /L %d 0 R >> >>" % leaf)
    content = doc.add_stream(b"q 1 0 0 1 100 100 cm /F Do Q q 1 0 0 1 300 100 cm /F Do Q")
    page = doc.add(b"<< /Type /Page /Parent %d 0 R /MediaBox [0 0 400 300] "
                   b"/Resources << /XObject << /F %d 0 R >> >> /Contents %d 0 R >>" %
                   (tree, form, content))
    doc.set(catalog, b"<< /Type /Catalog /Pages %d 0 R >>" % tree)
    doc.set(tree, b"<< /Type /Pages /Kids [%d 0 R] /Count 1 >>" % page)
    return doc.finish(catalog)


def image_document():
    doc = PdfWriter()
    catalog = doc.reserve()
    tree = doc.reserve()
    pixels = bytes((x * 60) % 256 for x in range(4 * 4 * 3))
    image = doc.add_stream(pixels, b"/Type /XObject /Subtype /Image /Width 4 /Height 4 "
                           b"/ColorSpace /DeviceRGB /BitsPerComponent 8", compress=True)
    content = doc.add_stream(b"q 80 0 0 80 20 20 cm /I Do Q")
    page = doc.add(b"<< /Type /Page /Parent %d 0 R /MediaBox [0 0 200 200] "
                   b"/Resources << /XObject << /I %d 0 R >> >> /Contents %d 0 R >>" %
                   (tree, image, content))
    doc.set(catalog, b"<< /Type /Catalog /Pages %d 0 R >>" % tree)
    doc.set(tree, b"<< /Type /Pages /Kids [%d 0 R] /Count 1 >>" % page)
    return doc.finish(catalog)


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    font = b"/Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> >>"
    seeds = {
        "paths": simple_document([b"1 0 0 RG 2 w 1 J 1 j 10 10 m 200 300 l 250 100 l S "
                                  b"0 0 1 rg 50 50 100 100 re f 0.5 g 300 300 m 400 300 l "
                                  b"350 400 l h 320 320 m 380 320 l 350 380 l h f* "
                                  b"[6 3] 0 d 0 1 0 RG 10 500 m 100 600 200 400 300 500 c "
                                  b"350 550 v 400 500 y S"], 595, 842),
        "colours": simple_document([b"0.1 0.2 0.3 0.4 k 0 0 50 50 re f 0.2 0.9 0.1 0.0 K "
                                    b"/DeviceRGB cs 0.3 0.6 0.9 sc 60 0 50 50 re f "
                                    b"5 w 0 100 m 100 100 l S 0.5 0 0 rg 0 200 50 50 re B"],
                                   200, 300),
        "text": simple_document([b"BT /F1 24 Tf 50 700 Td (Plot 1:50) Tj 0 -30 Td 2 Tr "
                                 b"[(Wid) -200 (th)] TJ ET"], resources=font),
        "pages": simple_document([b"0 0 m 100 100 l S", b"0 0 1 rg 10 10 80 80 re f",
                                  b"50 50 m 60 60 l 70 50 l s"], 300, 200),
        "compressed": simple_document([b"q 0.5 0 0 0.5 0 0 cm " + b"0 0 m 10 20 l " * 50 +
                                       b"S Q"], 200, 200, compress=True),
        "clip": simple_document([b"q 10 10 100 100 re W n 0 0 1 rg 0 0 200 200 re f Q"],
                                200, 200),
        "forms": form_document(),
        "image": image_document(),
    }
    damaged = bytearray(seeds["paths"])
    at = damaged.rfind(b"xref")
    damaged[at + 10:at + 30] = b"9999999999 00000 n \n"
    seeds["damaged-xref"] = bytes(damaged)
    for name, data in seeds.items():
        with open(os.path.join(folder, name + ".pdf"), "wb") as f:
            f.write(data)


if __name__ == "__main__":
    main()
