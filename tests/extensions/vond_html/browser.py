"""browser.py FOLDER: opens the pages of a folder in a headless Chromium and looks at what a reader would
see of them."""

import base64
import http.server
import os
import sys
import threading
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

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


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = open_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def setUp(self):
        self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": []})
        self.browser.get_log("browser")

    def open(self, page, fragment=""):
        # The same page with another fragment would not be loaded anew.
        self.browser.get("about:blank")
        self.browser.get(f"file://{FOLDER}/{page}.html{fragment}")

    def set_width(self, width):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 640, "deviceScaleFactor": 1, "mobile": True})

    def set_scheme(self, scheme):
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def ask(self, expression):
        return self.browser.execute_script("return " + expression)

    def color(self, selector, name):
        """Returns red, green, blue and, where it is not 1, the opacity."""
        return self.find(selector).value_of_css_property(name)

    def test_pages_open_from_disk_without_a_message(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.open(page.stem)
                self.assertIn("End of report.", self.find("footer").text)
                self.assertEqual(self.browser.get_log("browser"), [])

    def test_style_is_let_through_by_the_policy(self):
        self.open("example")
        self.assertNotEqual(self.color(".verdict", "border-left-width"), "0px")

    def test_nothing_of_hostile_texts_becomes_an_element(self):
        self.open("hostile")
        self.assertEqual(self.ask("document.querySelectorAll('script, img, iframe, link, object, "
                                  "embed, form, base, svg').length"), 0)
        self.assertEqual(self.ask("document.querySelectorAll('style').length"), 1)
        names = {name for element in self.ask("Array.from(document.querySelectorAll('body *'), "
                                              "element => element.getAttributeNames())")
                 for name in element}
        self.assertEqual(names - {"class", "id", "href", "open", "dir", "datetime", "title",
                                  "aria-hidden", "aria-label"}, set())
        self.assertEqual(self.ask("performance.getEntriesByType('resource').length"), 0)
        texts = [message.text for message in self.browser.find_elements(By.CLASS_NAME, "message")]
        for text in ("</script>", "<!-- -->", 'a "quote"', "&amp;", "<![CDATA["):
            self.assertIn(text, texts)

    def test_what_a_text_turns_around_ends_with_it(self):
        self.open("hostile")
        self.assertEqual(self.ask("getComputedStyle(document.querySelector('bdi')).unicodeBidi"),
                         "isolate")

    def test_a_phone_needs_no_scrolling_to_the_side(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.set_width(PHONE)
                self.open(page.stem)
                self.assertEqual(self.ask("window.innerWidth"), PHONE)
                self.assertLessEqual(self.ask("document.documentElement.scrollWidth"), PHONE)

    def test_an_unfolded_tree_has_room_on_a_phone(self):
        self.set_width(PHONE)
        self.open("example")
        self.ask("document.querySelectorAll('details').forEach(one => one.open = true)")
        self.assertLessEqual(self.ask("document.documentElement.scrollWidth"), PHONE)

    def test_light_and_dark_follow_the_setting(self):
        seen = {}
        for scheme in ("light", "dark"):
            self.set_scheme(scheme)
            self.open("example")
            seen[scheme] = (self.color("html", "background-color"), self.color("body", "color"))
        self.assertNotEqual(seen["light"], seen["dark"])

    def test_texts_can_be_told_from_what_is_behind_them(self):
        for scheme in ("light", "dark"):
            self.set_scheme(scheme)
            self.open("example")
            for text, behind in ((".message", ".issue"), (".band.critical", ".issue"),
                                 (".band.warning", ".issue"), (".band.informational", ".issue"),
                                 ("dt", "html"), (".issue a", ".issue"), (".issue dt", ".issue"),
                                 (".type", ".issue"), (".remark", "#acknowledged"),
                                 (".status.pass", ".tree"), (".status.fail", ".tree"),
                                 ("footer", "html"), (".reason", ".verdict")):
                with self.subTest(scheme=scheme, text=text):
                    self.assertGreaterEqual(
                        contrast(self.color(text, "color"), self.color(behind, "background-color")),
                        4.5)

    def test_links_lead_to_issues(self):
        self.open("example")
        self.find("#band-critical li a").click()
        self.assertTrue(self.browser.current_url.endswith("#issue-1"))
        self.assertEqual(self.ask("document.querySelector(':target').id"), "issue-1")
        self.assertLess(abs(self.ask("document.querySelector(':target').getBoundingClientRect().top")),
                        100)

    def test_a_link_to_an_issue_can_be_sent(self):
        self.open("example", "#issue-5")
        self.assertEqual(self.ask("document.querySelector(':target').id"), "issue-5")
        self.assertGreater(self.ask("window.scrollY"), 0)

    def test_definitions_are_folded_out_where_they_fail_alone(self):
        self.open("example")
        for details in self.browser.find_elements(By.TAG_NAME, "details"):
            fails = details.find_element(By.CSS_SELECTOR, "summary .status").get_attribute("class")
            is_open = details.get_attribute("open") is not None
            self.assertEqual(is_open, "fail" in fails)

    def test_nodes_that_nobody_looked_at_are_hatched_and_have_no_colour_of_health(self):
        self.open("example")
        clean = self.color(".strip .clean", "color")
        for cell in self.browser.find_elements(By.CSS_SELECTOR, ".strip .not-examined"):
            self.assertIn("gradient", cell.value_of_css_property("background-image"))
            self.assertNotEqual(cell.value_of_css_property("color"), clean)
        self.assertEqual(self.color(".strip .clean", "background-image"), "none")
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, ".strip .not-examined")), 3)

    def test_a_node_leads_to_its_worst_issue(self):
        self.open("example")
        cell = self.find(".strip a[title^='cn031:']")
        name = cell.get_attribute("title")
        self.assertIn("CRITICAL", name)
        cell.click()
        self.assertIn("cn[011,031", self.find(":target .nodes").text)

    def test_keys_alone_reach_links_and_fold(self):
        self.open("example")
        body = self.find("body")
        body.send_keys(Keys.TAB)
        self.assertEqual(self.ask("document.activeElement.getAttribute('href')"), "#changes")
        summary = self.find(".tree summary")
        summary.send_keys(Keys.ENTER)
        self.assertIsNone(self.find(".tree details").get_attribute("open"))

    def test_prints_to_a_document_with_the_last_line(self):
        self.open("example")
        pdf = base64.b64decode(self.browser.print_page())
        self.assertEqual(pdf[:5], b"%PDF-")
        self.assertGreater(pdf.count(b"/Type /Page\n") + pdf.count(b"/Type /Page "), 3)

    def test_policy_that_forbids_styles_leaves_all_to_read(self):
        server = Server("sandbox; default-src 'none'; img-src 'self'; style-src 'self'")
        self.browser.get("about:blank")
        self.browser.get(server.url("example.html"))
        self.assertEqual(self.color(".verdict", "border-left-width"), "0px")
        self.assertIn("Cluster health: ✖ FAIL", self.find("h1").text)
        self.assertIn("CRITICAL", self.find("article").text)
        self.assertIn("End of report.", self.find("footer").text)
        server.shutdown()

    def test_hostile_texts_fetch_nothing(self):
        server = Server("img-src 'self'")
        self.browser.get("about:blank")
        self.browser.get(server.url("hostile.html"))
        self.assertIn("End of report.", self.find("footer").text)
        # The browser itself asks for a picture of a page that names none.
        self.assertEqual(set(server.asked) - {"/favicon.ico"}, {"/hostile.html"})
        server.shutdown()


class WithoutScriptTest(unittest.TestCase):
    def setUp(self):
        self.browser = open_browser(with_script=False)
        self.addCleanup(self.browser.quit)

    def test_all_is_there(self):
        self.browser.get(f"file://{FOLDER}/example.html")
        self.assertGreater(len(self.browser.find_elements(By.TAG_NAME, "article")), 50)
        self.assertIn("End of report.", self.browser.find_element(By.TAG_NAME, "footer").text)
        self.assertEqual(self.browser.get_log("browser"), [])

    def test_scripts_are_off(self):
        self.browser.get("data:text/html,<title>off</title><script>document.title = 'on'</script>")
        self.assertEqual(self.browser.title, "off")


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


if __name__ == "__main__":
    # What the browser keeps goes with the folder.
    os.environ["HOME"] = str(FOLDER)
    unittest.main()
