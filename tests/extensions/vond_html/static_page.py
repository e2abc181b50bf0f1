"""static_page.py FOLDER: opens the pages of a folder in a headless Chromium that runs no script and looks
at what a reader would see of them."""

import base64

from selenium.webdriver.common.keys import Keys

from browser import PAGES, PHONE, PageCase, Server, main


class StaticPageTest(PageCase):
    with_script = False

    def test_pages_open_from_disk_without_a_message(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.open(page.stem)
                self.assertIn("End of report.", self.find("footer").text)
                self.assert_no_message()

    def test_style_is_let_through_by_the_policy(self):
        self.open("example")
        self.assertNotEqual(self.color(".verdict", "border-left-width"), "0px")

    def test_what_a_text_turns_around_ends_with_it(self):
        self.open("hostile")
        self.assertEqual(self.ask("getComputedStyle(document.querySelector('bdi')).unicodeBidi"),
                         "isolate")

    def test_a_phone_needs_no_scrolling_to_the_side(self):
        for page in PAGES:
            with self.subTest(page=page.name):
                self.set_width(PHONE)
                self.open(page.stem)
                self.assert_fits(PHONE)

    def test_an_unfolded_tree_has_room_on_a_phone(self):
        self.set_width(PHONE)
        self.open("example")
        self.ask("document.querySelectorAll('details').forEach(one => one.open = true)")
        self.assert_fits(PHONE)

    def test_light_and_dark_follow_the_setting(self):
        seen = {}
        for scheme in ("light", "dark"):
            self.set_media(scheme=scheme)
            self.open("example")
            seen[scheme] = (self.color("html", "background-color"), self.color("body", "color"))
        self.assertNotEqual(seen["light"], seen["dark"])

    def test_texts_can_be_told_from_what_is_behind_them(self):
        for scheme in ("light", "dark"):
            self.set_media(scheme=scheme)
            self.open("example")
            for text, behind in ((".message", ".issue"), (".band.critical", ".issue"),
                                 (".band.warning", ".issue"), (".band.informational", ".issue"),
                                 ("dt", "html"), (".issue a", ".issue"), (".issue dt", ".issue"),
                                 (".type", ".issue"), (".remark", "#acknowledged"),
                                 (".status.pass", ".tree"), (".status.fail", ".tree"),
                                 ("footer", "html"), (".reason", ".verdict")):
                with self.subTest(scheme=scheme, text=text):
                    self.assert_readable(text, behind)

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
        for details in self.find_all("details"):
            fails = details.find_element("css selector", "summary .status").get_attribute("class")
            is_open = details.get_attribute("open") is not None
            self.assertEqual(is_open, "fail" in fails)

    def test_nodes_that_nobody_looked_at_are_hatched_and_have_no_colour_of_health(self):
        self.open("silent")
        clean = self.color(".strip .clean", "color")
        for cell in self.find_all(".strip .not-examined"):
            self.assertIn("gradient", cell.value_of_css_property("background-image"))
            self.assertNotEqual(cell.value_of_css_property("color"), clean)
        self.assertEqual(self.color(".strip .clean", "background-image"), "none")
        self.assertEqual(len(self.find_all(".strip .not-examined")), 1)

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

    def test_all_is_there(self):
        self.open("example")
        self.assertGreater(len(self.find_all("article")), 50)
        self.assertIn("End of report.", self.find("footer").text)
        self.assertTrue(self.find("article").is_displayed())

    def test_scripts_are_off(self):
        self.browser.get("data:text/html,<title>off</title><script>document.title = 'on'</script>")
        self.assertEqual(self.browser.title, "off")


if __name__ == "__main__":
    main()
