"""Writes small PDF files from Python: numbered objects, streams (plain or FlateDecode) and a
cross-reference table whose offsets are counted from the bytes written. Standard library only.

    doc = PdfWriter()
    page = doc.reserve()
    content = doc.add_stream(b"0 0 m 100 100 l S")
    doc.set(page, b"<< /Type /Page /Parent 2 0 R /Contents %d 0 R >>" % content)
    data = doc.finish(root)     # the whole file

Objects are bytes in PDF syntax; refer to object n as b"%d 0 R" % n.
"""
import zlib


class PdfWriter:
    def __init__(self, version=b"1.7"):
        self.version = version
        self.objects = []  # bytes of each object, or None while reserved

    def reserve(self):
        """A number for an object written later with set()."""
        self.objects.append(None)
        return len(self.objects)

    def set(self, number, body):
        self.objects[number - 1] = body

    def add(self, body):
        self.objects.append(body)
        return len(self.objects)

    def add_stream(self, data, dictionary=b"", compress=False, length=None):
        """A stream object; `length` overrides the /Length written (for damaged files)."""
        filters = b""
        if compress:
            data = zlib.compress(data, 9)
            filters = b" /Filter /FlateDecode"
        size = len(data) if length is None else length
        body = (b"<< /Length %d%s %s >>\nstream\n" % (size, filters, dictionary) + data +
                b"\nendstream")
        return self.add(body)

    def finish(self, root, trailer_extra=b""):
        """The file: header, objects, cross-reference table and trailer with /Root `root`."""
        out = bytearray(b"%PDF-" + self.version + b"\n%\xe2\xe3\xcf\xd3\n")
        offsets = []
        for number, body in enumerate(self.objects, start=1):
            if body is None:
                raise ValueError("object %d reserved but never set" % number)
            offsets.append(len(out))
            out += b"%d 0 obj\n" % number + body + b"\nendobj\n"
        xref = len(out)
        out += b"xref\n0 %d\n0000000000 65535 f \n" % (len(self.objects) + 1)
        for offset in offsets:
            out += b"%010d 00000 n \n" % offset
        out += (b"trailer\n<< /Size %d /Root %d 0 R %s >>\nstartxref\n%d\n%%%%EOF\n" %
                (len(self.objects) + 1, root, trailer_extra, xref))
        return bytes(out)


def simple_document(contents, width=595, height=842, resources=b"", compress=False,
                    page_extra=b""):
    """A document of one page a content stream (bytes each), every page `width` by `height`
    points with the same resources dictionary body."""
    doc = PdfWriter()
    catalog = doc.reserve()
    tree = doc.reserve()
    kids = []
    for content in contents:
        stream = doc.add_stream(content, compress=compress)
        kids.append(doc.add(b"<< /Type /Page /Parent %d 0 R /MediaBox [0 0 %s %s] "
                            b"/Resources << %s >> /Contents %d 0 R %s >>" %
                            (tree, str(width).encode(), str(height).encode(), resources,
                             stream, page_extra)))
    doc.set(catalog, b"<< /Type /Catalog /Pages %d 0 R >>" % tree)
    doc.set(tree, b"<< /Type /Pages /Kids [%s] /Count %d >>" %
            (b" ".join(b"%d 0 R" % k for k in kids), len(kids)))
    return doc.finish(catalog)
