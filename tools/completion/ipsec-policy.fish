# Completes the arguments of ipsec-policy in fish. All that can be offered is known to the program itself; here is only
# what fish wants to have it like (docs/completion.md).

# The words, each as any shell would read it: fish's own quotes are not those of the others.
function __ipsec_policy_typed
    for word in $argv
        string escape --no-quoted -- $word | string replace -r '^\\\\~/' '~/'
    end
end

function __ipsec_policy_complete
    set -l words (commandline -opc)
    set -l last (string unescape -- (commandline -ct)) # also where a quote is still open
    set -l program (string replace -r '^~/' "$HOME/" -- $words[1])
    command -q $program; or return
    for line in ($program __complete (__ipsec_policy_typed $words[2..] "$last") 2>/dev/null)
        if test "$line" = :files
            # Behind an option in the same word, perhaps.
            set -l option (string match -r '^--[^=]*=' -- $last)
            for path in (__fish_complete_path (string replace -r '^--[^=]*=' '' -- "$last"))
                echo "$option$path"
            end
        else
            set -l parts (string split -m 1 \t -- $line)
            echo (string unescape -- $parts[1])\t"$parts[2]"
        end
    end
end

complete -c ipsec-policy -f -a '(__ipsec_policy_complete)'
