#!/usr/bin/env python3
"""The site of `lxcat html` in a real headless browser.

    site_browser_test.py LXCAT SITE_CATALOG

SITE_CATALOG writes a small catalog (folders, sizes, a calculated column, a
PNG icon, a model that is no picture); LXCAT writes its site. Then every page
is opened in headless Chromium: no page may log an error, every link and
picture must lead to a file of the site, every picture must decode, and the
search box must hide exactly the rows that do not match. Exits 77 (skipped)
only when Chromium or its driver is not installed.
"""
import html.parser
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import urllib.parse
import zlib
from pathlib import Path

SKIPPED = 77
CHROMIUM = shutil.which("chromium") or shutil.which("chromium-browser")
DRIVER = shutil.which("chromedriver")
PACKET = "Крепёж <b>&\"'"


def png(width, height, rgb):
    """A plain truecolour PNG of one colour."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = b"".join(b"\0" + bytes(rgb) * width for _ in range(height))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b"")


class References(html.parser.HTMLParser):
    """Every address a page refers to, by tag and attribute."""
    def __init__(self):
        super().__init__()
        self.found = []

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src"):
                self.found.append((tag, name, value or ""))


class SiteInBrowser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.work = Path(tempfile.mkdtemp(prefix="lxcat-site-"))
        icon, model, fragment = cls.work / "icon.png", cls.work / "model.qmx", cls.work / "fragment.png"
        icon.write_bytes(png(4, 3, (200, 30, 30)))
        model.write_bytes(b"ISO-10303-21; a model, not a picture\n" * 8)
        fragment.write_bytes(png(6, 5, (30, 30, 200)))
        catalog, cls.site = cls.work / "catalog.fdb", cls.work / "site"
        env = dict(os.environ, TMP=str(cls.work))
        subprocess.run([sys.argv[2], catalog, icon, model, fragment], check=True, env=env)
        subprocess.run([sys.argv[1], "html", catalog, cls.site], check=True, env=env)
        cls.pages = sorted(cls.site.glob("*.html"))
        cls.browser = cls.open_browser()

    @classmethod
    def tearDownClass(cls):
        if getattr(cls, "browser", None):
            cls.browser.quit()
        shutil.rmtree(cls.work, ignore_errors=True)

    @staticmethod
    def open_browser():
        from selenium import webdriver
        from selenium.webdriver.chrome.service import Service
        options = webdriver.ChromeOptions()
        options.binary_location = CHROMIUM
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        return webdriver.Chrome(service=Service(DRIVER), options=options)

    def open(self, page):
        self.browser.get(page.resolve().as_uri())
        return [entry for entry in self.browser.get_log("browser") if entry["level"] == "SEVERE"]

    def page_named(self, title_part):
        for page in self.pages:
            self.browser.get(page.resolve().as_uri())
            if title_part in self.browser.title:
                return page
        self.fail(f"no page titled with {title_part!r}")

    def test_every_reference_is_a_file_of_the_site(self):
        # the index and one page per folder: 4 folders in the first packet, 1 in the other
        self.assertEqual(len(self.pages), 6)
        linked = set()
        for page in self.pages:
            parser = References()
            parser.feed(page.read_text(encoding="utf-8"))
            for tag, attribute, value in parser.found:
                if value.startswith("data:"):
                    continue
                address = urllib.parse.urlsplit(value)
                self.assertFalse(address.scheme or address.netloc, f"{page.name}: {tag} {attribute}={value}")
                target = (page.parent / urllib.parse.unquote(address.path)).resolve()
                self.assertTrue(target.is_file(), f"{page.name}: {tag} {attribute}={value}")
                self.assertTrue(target.is_relative_to(self.site.resolve()), value)
                linked.add(target)
        self.assertEqual({page.resolve() for page in self.pages} - linked, set(), "pages nobody links")

    def test_every_page_loads_without_errors_and_its_pictures_decode(self):
        for page in self.pages:
            with self.subTest(page=page.name):
                self.assertEqual(self.open(page), [])
                broken = self.browser.execute_script(
                    "return Array.from(document.images).filter(i => !i.complete || i.naturalWidth === 0)"
                    ".map(i => i.getAttribute('src'))")
                self.assertEqual(broken, [])

    def test_names_are_shown_as_written(self):
        self.open(self.site / "index.html")
        tree = self.browser.find_element("id", "packets").text
        self.assertIn(PACKET, tree)
        self.assertIn("Мелкие & малые", tree)
        self.assertEqual(self.browser.find_elements("tag name", "b"), [])

    def test_bolts_table_pictures_and_calculated_column(self):
        page = self.page_named("Болты")
        self.assertEqual(self.open(page), [])
        rows = self.browser.find_elements("css selector", "#sizes tbody tr")
        cells = {row.find_element("css selector", "td").text: row for row in rows}
        self.assertEqual(sorted(cells), ["M10", "M6", "M8"])
        self.assertIn("12", [td.text for td in cells["M6"].find_elements("tag name", "td")])
        self.assertIn("мелкая <i>", cells["M8"].text)
        pictures = {row: [(img.get_attribute("alt"), img.get_property("naturalWidth"))
                          for img in cells[row].find_elements("tag name", "img")] for row in cells}
        alts = [alt for alt, _ in pictures["M6"]]
        # model icon, fragment icon, fragment file; the model file is no picture
        self.assertEqual(len(alts), 3, alts)
        self.assertTrue(any(alt.startswith("model ") and alt.endswith(" icon") for alt in alts), alts)
        self.assertEqual(sorted(width for _, width in pictures["M6"]), [4, 4, 6])
        self.assertEqual([alt for alt, _ in pictures["M8"]], [a for a in alts if a.startswith("model ")])
        self.assertEqual(pictures["M10"], [])
        # M8 shares the model of M6, and with it the one file of its icon
        sources = [img.get_attribute("src") for img in self.browser.find_elements("tag name", "img")]
        self.assertEqual((len(sources), len(set(sources))), (4, 3))

    def test_search_box_hides_rows_that_do_not_match(self):
        page = self.page_named("Болты")
        self.open(page)
        box = self.browser.find_element("id", "search")

        def shown():
            return sorted(row.find_element("css selector", "td").text
                          for row in self.browser.find_elements("css selector", "#sizes tbody tr")
                          if row.is_displayed())
        box.send_keys("КРУПН")
        self.assertEqual(shown(), ["M10", "M6"])
        box.clear()
        box.send_keys("m8")
        self.assertEqual(shown(), ["M8"])
        box.send_keys("x")
        self.assertEqual(shown(), [])
        box.clear()
        box.send_keys(" ")
        self.assertEqual(shown(), ["M10", "M6", "M8"])


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    if not CHROMIUM or not DRIVER:
        print("skipped: chromium or chromedriver is not installed")
        sys.exit(SKIPPED)
    result = unittest.main(argv=sys.argv[:1], exit=False).result
    sys.exit(0 if result.wasSuccessful() else 1)
