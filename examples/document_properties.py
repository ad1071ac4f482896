"""The properties that the sample documents carry: the firm that they are of, and the day they were made."""
import datetime
import zipfile
from xml.sax.saxutils import escape

FIRM = "Železářství Na Růžku"
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
OPEN_XML = "http://schemas.openxmlformats.org"


def set_properties(entries, title):
    """Gives a package, a dictionary of its entries, properties in place of those of the library that made it."""
    now = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    entries["docProps/core.xml"] = (
        f'{HEAD}<cp:coreProperties xmlns:cp="{OPEN_XML}/package/2006/metadata/core-properties" '
        'xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" '
        'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">'
        f"<dc:title>{escape(title)}</dc:title><dc:creator>{FIRM}</dc:creator>"
        f"<cp:lastModifiedBy>{FIRM}</cp:lastModifiedBy>"
        f'<dcterms:created xsi:type="dcterms:W3CDTF">{now}</dcterms:created>'
        f'<dcterms:modified xsi:type="dcterms:W3CDTF">{now}</dcterms:modified></cp:coreProperties>').encode()
    entries["docProps/app.xml"] = (
        f'{HEAD}<Properties xmlns="{OPEN_XML}/officeDocument/2006/extended-properties">'
        f"<Company>{FIRM}</Company></Properties>").encode()


def write_package(entries, path):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as target:
        for name, data in entries.items():
            target.writestr(zipfile.ZipInfo(name, (2026, 1, 1, 0, 0, 0)), data, zipfile.ZIP_DEFLATED)
