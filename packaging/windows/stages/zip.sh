# SPDX-License-Identifier: MIT
# One file to hand over; -X leaves out what only this machine's file system knows.
name=tavrel-$(tool_version)-windows-x86_64
cd "$dist"
rm -f "$name.zip"
zip -qr9X "$name.zip" "$name"
tell "$name.zip: $(stat -c %s "$name.zip") bytes, sha256 $(sha256sum "$name.zip" | cut -d ' ' -f 1)"
