#!/usr/bin/env python3
"""A web server on this machine for the walk over the web: serves the files of a folder, well and badly.

    map_server.py FOLDER        prints its port, then serves until it is ended
"""
import http.server
import pathlib
import sys
import time

folder = pathlib.Path(sys.argv[1])


class Handler(http.server.BaseHTTPRequestHandler):
    def log_message(self, *arguments):
        pass

    def send_head(self, status, length, headers=()):
        self.send_response(status)
        for name, value in headers:
            self.send_header(name, value)
        self.send_header("Content-Length", str(length))
        self.end_headers()

    def send_file(self, name, headers=()):
        body = (folder / name).read_bytes()
        self.send_head(200, len(body), headers)
        self.wfile.write(body)

    def do_GET(self):
        path = self.path.lstrip("/")
        if path == "moved.bms":
            self.send_head(302, 0, [("Location", "/Oasis.bms")])
        elif path.startswith("fetch.php"):
            self.send_file("maps.zip", [("Content-Disposition", "attachment; filename=maps.zip")])
        elif path == "slow.bms":
            body = (folder / "Oasis.bms").read_bytes()
            self.send_head(200, len(body))
            try:
                for start in range(0, len(body), len(body) // 4 + 1):
                    self.wfile.write(body[start:start + len(body) // 4 + 1])
                    self.wfile.flush()
                    time.sleep(0.5)
            except OSError:
                pass  # the client has left
        elif path == "cut.bms":
            body = (folder / "Oasis.bms").read_bytes()
            self.send_head(200, len(body))
            self.wfile.write(body[:len(body) // 2])
        elif path == "endless.bms":
            self.send_response(200)
            self.end_headers()
            try:
                while True:
                    self.wfile.write(bytes(1 << 20))
            except OSError:
                pass  # the client has had enough
        elif path == "circle.bms":
            self.send_head(302, 0, [("Location", "/circle.bms")])
        elif (folder / path).is_file():
            self.send_file(path)
        else:
            self.send_head(404, 0)


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
print(server.server_port, flush=True)
server.serve_forever()
