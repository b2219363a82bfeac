"""The servers that the measurements fetch from, on loopback and on ports of their own."""

import contextlib
import os
import signal
import socket
import subprocess
import sys
import time
from pathlib import Path

# The servers end with this process, whatever ends it.
ENDS_WITH_US = ["setpriv", "--pdeathsig", "TERM"]

NGINX_CONFIGURATION = """
{user}
worker_processes 1;
daemon off;
pid "{folder}/pid";
error_log "{folder}/error.log";
events {{ worker_connections 1024; }}
http {{
  include /etc/nginx/mime.types;
  access_log off;
  sendfile on;
  tcp_nopush on;
  keepalive_requests 1000000;
  client_body_temp_path "{folder}/body";
  proxy_temp_path "{folder}/proxy";
  fastcgi_temp_path "{folder}/fastcgi";
  uwsgi_temp_path "{folder}/uwsgi";
  scgi_temp_path "{folder}/scgi";
{servers}
}}
"""


def free_ports(count):
    with contextlib.ExitStack() as stack:
        sockets = [stack.enter_context(socket.socket()) for _ in range(count)]
        for one in sockets:
            one.bind(("127.0.0.1", 0))
        return [one.getsockname()[1] for one in sockets]


def wait_for(port, process, seconds=20):
    deadline = time.monotonic() + seconds
    while True:
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), 1):
            return
        if process.poll() is not None or time.monotonic() > deadline:
            raise SystemExit(f"error: the server on port {port} did not start")
        time.sleep(0.02)


def end(process):
    process.send_signal(signal.SIGTERM)
    try:
        process.wait(10)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


@contextlib.contextmanager
def nginx(folder, roots):
    """Serves each of the folders `roots` on a port; gives the ports."""
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    ports = free_ports(len(roots))
    servers = "\n".join(f'  server {{ listen 127.0.0.1:{port}; root "{root}"; }}' for port, root in zip(ports, roots))
    # As root its worker would become another user, who may not be able to read the sites.
    user = "user root;" if os.geteuid() == 0 else ""
    configuration = folder / "nginx.conf"
    configuration.write_text(NGINX_CONFIGURATION.format(user=user, folder=folder, servers=servers))
    process = subprocess.Popen([*ENDS_WITH_US, "/usr/sbin/nginx", "-e", folder / "error.log", "-p", folder,
                                "-c", configuration], stdin=subprocess.DEVNULL)
    try:
        wait_for(ports[0], process)
        yield ports
    finally:
        end(process)


@contextlib.contextmanager
def slow_server(root, milliseconds):
    """Serves `root`, each answer after some time; gives the port."""
    program = Path(__file__).with_name("slow_server.py")
    process = subprocess.Popen([*ENDS_WITH_US, sys.executable, "-B", program, root, str(milliseconds)],
                               stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    try:
        port = int(process.stdout.readline() or 0)
        wait_for(port, process)
        yield port
    finally:
        end(process)
