"""What the tests of pages in a headless Chromium share. The folder of the pages is the program's first
argument."""

import http.server
import os
import sys
import threading
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

FOLDER = Path(sys.argv.pop(1))
PAGES = sorted(FOLDER.glob("*.html"))
PHONE = 320


def open_browser(with_script=True):
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    for argument in ("headless=new", "no-sandbox", "disable-gpu", "disable-dev-shm-usage",
                     f"user-data-dir={FOLDER}/profile-{with_script}"):
        options.add_argument("--" + argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    if not with_script:
        options.add_experimental_option(
            "prefs", {"profile.managed_default_content_settings.javascript": 2})
    return webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))


class Server(http.server.ThreadingHTTPServer):
    """Serves the folder under a policy, and notes what is asked for."""

    def __init__(self, policy):
        self.asked = []
        server = self

        class Handler(http.server.SimpleHTTPRequestHandler):
            def __init__(self, *arguments):
                super().__init__(*arguments, directory=str(FOLDER))

            def end_headers(self):
                self.send_header("Content-Security-Policy", policy)
                super().end_headers()

            def do_GET(self):
                server.asked.append(self.path)
                super().do_GET()

            def log_message(self, *arguments):
                pass

        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def url(self, page):
        return f"http://127.0.0.1:{self.server_address[1]}/{page}"


class PageCase(unittest.TestCase):
    """A browser that stays open from test to test."""

    with_script = True

    @classmethod
    def setUpClass(cls):
        cls.browser = open_browser(cls.with_script)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        self.set_media()
        self.browser.get_log("browser")

    def open(self, page, fragment=""):
        # The same page with another fragment would not be loaded anew.
        self.browser.get("about:blank")
        self.browser.get(f"file://{FOLDER}/{page}.html{fragment}")

    def set_width(self, width, scale=1):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 640, "deviceScaleFactor": scale, "mobile": True})

    def set_media(self, media="", scheme=None):
        features = [] if scheme is None else [{"name": "prefers-color-scheme", "value": scheme}]
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                     {"media": media, "features": features})

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def find_all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def ask(self, expression, *arguments):
        return self.browser.execute_script("return " + expression, *arguments)

    def wait_for(self, condition):
        """Waits until a function returns something true, and returns that."""
        return WebDriverWait(self.browser, 10).until(lambda _: condition())

    def color(self, selector, name):
        """Returns red, green, blue and, where it is not 1, the opacity."""
        return self.find(selector).value_of_css_property(name)

    def assert_no_message(self):
        self.assertEqual(self.browser.get_log("browser"), [])

    def assert_fits(self, width):
        self.assertEqual(self.ask("window.innerWidth"), width)
        self.assertLessEqual(self.ask("document.documentElement.scrollWidth"), width)

    def assert_readable(self, text, behind):
        self.assertGreaterEqual(
            contrast(self.color(text, "color"), self.color(behind, "background-color")), 4.5)


def contrast(one, other):
    """Returns the contrast of two colours as WCAG 2 defines it, 1 to 21."""
    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


def luminance(color):
    numbers = color[color.index("(") + 1:color.index(")")].split(",")[:3]
    red, green, blue = (linear(int(number) / 255) for number in numbers)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def linear(part):
    return part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4


def main():
    # What the browser keeps goes with the folder.
    os.environ["HOME"] = str(FOLDER)
    unittest.main()
