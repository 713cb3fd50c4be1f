# SPDX-License-Identifier: LGPL-2.1-or-later
"""Certificates of every kind for hostile_radio.py, and servers that never end their greeting."""
import datetime
import ipaddress
import os
import ssl

# Kinds of certificate: issuer, days from and to, host.
CERTIFICATES = {
    "good": ("root", -1, 1, "127.0.0.1"),
    "self": ("itself", -1, 1, "127.0.0.1"),
    "expired": ("root", -3, -1, "127.0.0.1"),
    "wrong": ("root", -1, 1, "127.0.0.2"),
}


def make_certificates(folder):
    from cryptography import x509
    from cryptography.hazmat.primitives import hashes, serialization
    from cryptography.hazmat.primitives.asymmetric import ec

    now = datetime.datetime.utcnow()

    def name_of(text):
        return x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, text)])

    def build(subject, issuer, key, signer, days, extension):
        builder = x509.CertificateBuilder().subject_name(name_of(subject)).issuer_name(name_of(issuer))
        builder = builder.public_key(key.public_key()).serial_number(x509.random_serial_number())
        builder = builder.not_valid_before(now + datetime.timedelta(days=days[0]))
        builder = builder.not_valid_after(now + datetime.timedelta(days=days[1]))
        return builder.add_extension(extension, critical=isinstance(extension, x509.BasicConstraints)).sign(
            signer, hashes.SHA256())

    def write(name, *parts):
        path = os.path.join(folder, name)
        with open(path, "wb") as out:
            for part in parts:
                out.write(part)
        return path

    def pem(certificate):
        return certificate.public_bytes(serialization.Encoding.PEM)

    root_key = ec.generate_private_key(ec.SECP256R1())
    root = build("Test root", "Test root", root_key, root_key, (-5, 5), x509.BasicConstraints(True, None))
    contexts = {}
    for kind, (issuer, since, until, host) in CERTIFICATES.items():
        key = ec.generate_private_key(ec.SECP256R1())
        names = x509.SubjectAlternativeName([x509.IPAddress(ipaddress.ip_address(host))])
        by_root = issuer == "root"
        certificate = build(host, "Test root" if by_root else host, key, root_key if by_root else key, (since, until), names)
        key_bytes = key.private_bytes(serialization.Encoding.PEM, serialization.PrivateFormat.PKCS8,
                                      serialization.NoEncryption())
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(write(kind + ".pem", pem(certificate), key_bytes))
        contexts[kind] = context
    return write("root.pem", pem(root)), contexts


def silent(connection):
    connection.recv(65536)
    while connection.recv(65536):
        pass
    return connection


def torn(connection):
    connection.recv(65536)
    connection.sendall(b"\x16\x03\x03\x00\x7a\x02")  # the beginning of a greeting
    connection.close()
    raise OSError("torn")
