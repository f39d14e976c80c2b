# Makes the headers' plain comments those of the reference.
s,^// SPDX.*,,
s,^ *// ---.*,,
s,^( *)//( |$),\1///\2,
s/([;{,]) +\/\/ /\1 \/\/\/< /
